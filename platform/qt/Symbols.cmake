# SPDX-License-Identifier: MIT
# Sets `symbol_resource` to a source that holds the drawing of every symbol that views may name, as
# the Qt resource ":/symbols/NAME.svg".
include(${CMAKE_CURRENT_LIST_DIR}/../viewkit/symbols/SymbolNames.cmake)

find_path(QEV_SYMBOL_DRAWINGS gear.svg PATHS /usr/share/bootstrap-icons/svg
  DOC "The icon set's SVG files")
if(NOT QEV_SYMBOL_DRAWINGS)
  message(FATAL_ERROR "The icon set is not installed: install the package bootstrap-icons, or set "
                      "QEV_SYMBOL_DRAWINGS to the folder of its SVG files")
endif()

set(symbol_files "")
foreach(line IN LISTS QEV_SYMBOLS)
  if(NOT line MATCHES "^([^ ]+) +([^ ]+)$")
    message(FATAL_ERROR "Not a symbol's name and drawing: ${line}")
  endif()
  set(drawing "${QEV_SYMBOL_DRAWINGS}/${CMAKE_MATCH_2}.svg")
  if(NOT EXISTS "${drawing}")
    message(FATAL_ERROR "The symbol ${CMAKE_MATCH_1} has no drawing: there is no ${drawing}")
  endif()
  string(APPEND symbol_files "    <file alias=\"${CMAKE_MATCH_1}.svg\">${drawing}</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc CONTENT
"<RCC>
  <qresource prefix=\"/symbols\">
@symbol_files@  </qresource>
</RCC>
" @ONLY)
qt6_add_resources(symbol_resource ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc)
