// SPDX-License-Identifier: MIT
#include "foundation/StringsFile.hpp"
#include "foundation/Unicode.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto table = foundation::parseStringsFile(bytes);
  if (!table) return 0;
  for (const auto& [key, value] : *table) {
    if (!foundation::isValidUtf8(key) || !foundation::isValidUtf8(foundation::uppercased(value)))
      std::abort();
  }
  return 0;
}
