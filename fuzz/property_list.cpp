#include "foundation/PropertyList.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using foundation::PropertyListFormat;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto values = foundation::parsePropertyList({reinterpret_cast<const char*>(data), size});
  if (!values) return 0;
  for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
    // Some text that can be read, such as damaged UTF-8, cannot be written.
    const auto bytes = foundation::propertyListBytes(*values, format);
    if (bytes && !foundation::parsePropertyList(*bytes)) std::abort();
  }
  return 0;
}
