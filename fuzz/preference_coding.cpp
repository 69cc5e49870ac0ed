// SPDX-License-Identifier: MIT
#include "foundation/PreferenceCoding.hpp"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto value = foundation::decodedPreference({data, size});
  if (!value) return 0;
  const auto encoded = foundation::encodedPreference(*value);
  if (!encoded) std::abort();
  // The bytes are compared, because not-a-number does not equal itself.
  const auto again = foundation::decodedPreference(*encoded);
  if (!again || foundation::encodedPreference(*again) != encoded) std::abort();
  return 0;
}
