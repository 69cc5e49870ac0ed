// SPDX-License-Identifier: MIT
#include "foundation/JSON.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using foundation::JSON;

namespace {

// Reads every value and every member.
std::size_t sizeOf(const JSON& value) {
  std::size_t size = value.asString().value_or("").size() +
                     value.integerText().value_or("").size() +
                     static_cast<std::size_t>(value.asReal().has_value());
  for (const JSON& element : value.elements()) size += sizeOf(element);
  for (const auto& [name, member] : value.members()) {
    // A look-up by name finds the member with that name.
    if (value.member(name)->text() != member.text()) std::abort();
    size += name.size() + sizeOf(member);
  }
  return size;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto value = JSON::parseBorrowed({reinterpret_cast<const char*>(data), size});
  if (!value) return 0;
  const auto again = JSON::parse(value->text());
  if (!again || again->text() != value->text() || sizeOf(*again) != sizeOf(*value)) std::abort();
  return 0;
}
