# SPDX-License-Identifier: MIT
# Writes viewkit/SymbolNames.hpp from symbols.txt, and sets QEV_SYMBOLS to its lines, "name
# drawing".
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/symbols.txt QEV_SYMBOLS REGEX "^[a-z]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${CMAKE_CURRENT_LIST_DIR}/symbols.txt)
set(names "")
foreach(line IN LISTS QEV_SYMBOLS)
  string(REGEX REPLACE " .*$" "" name "${line}")
  string(APPEND names "    \"${name}\",\n")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/include/viewkit/SymbolNames.hpp CONTENT
"#pragma once

#include <array>
#include <string_view>

namespace viewkit {

// Every symbol that the application can draw.
inline constexpr auto kSymbolNames = std::to_array<std::string_view>({
@names@});

}  // namespace viewkit
" @ONLY)
