// SPDX-License-Identifier: MIT
#include "foundation/PropertyList.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using foundation::PropertyListFormat;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

struct Extent {
  std::size_t values = 0;
  std::size_t bytes = 0;
  int depth = 0;
};

void measure(const PreferenceDictionary& entries, int depth, Extent& extent);

void measure(const PreferenceValue& value, int depth, Extent& extent) {
  ++extent.values;
  if (depth > extent.depth) extent.depth = depth;
  if (const auto* text = value.asString()) extent.bytes += text->size();
  if (const auto* data = value.asData()) extent.bytes += data->size();
  if (const auto* entries = value.asDictionary()) measure(*entries, depth, extent);
  if (const auto* elements = value.asArray()) {
    for (const PreferenceValue& element : *elements) measure(element, depth + 1, extent);
  }
}

void measure(const PreferenceDictionary& entries, int depth, Extent& extent) {
  for (const auto& [key, value] : entries) {
    extent.bytes += key.size();
    measure(value, depth + 1, extent);
  }
}

}  // namespace

// Every list that is read is within the limits, with its references unfolded. It can be written and
// read again, in the binary form as the same value. The bytes are compared, because not-a-number
// does not equal itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto values = foundation::parsePropertyList({reinterpret_cast<const char*>(data), size});
  if (!values) return 0;
  Extent extent;
  measure(*values, 0, extent);
  // Two bytes of UTF-16 may become three of UTF-8.
  if (extent.values > foundation::kMaximumPropertyListValues ||
      extent.depth > foundation::kMaximumPropertyListDepth + 1 ||
      extent.bytes > (size + foundation::kMaximumPropertyListRepeatedBytes) / 2 * 3 + 3) {
    std::abort();
  }
  const auto binary = foundation::propertyListBytes(*values, PropertyListFormat::binary);
  if (!binary) std::abort();
  const auto again = foundation::parsePropertyList(*binary);
  if (!again || *foundation::propertyListBytes(*again, PropertyListFormat::binary) != *binary)
    std::abort();
  // Some text and some dates have no form in XML.
  const auto xml = foundation::propertyListBytes(*values, PropertyListFormat::xml);
  if (xml && !foundation::parsePropertyList(*xml)) std::abort();
  return 0;
}
