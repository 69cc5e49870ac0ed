// SPDX-License-Identifier: MIT
#include "QEVCommonTools/ColorRawValue.hpp"

#include "foundation/Base64.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace QEVCommonTools {

namespace {

constexpr std::size_t kComponents = 4;
constexpr std::size_t kComponentSize = sizeof(double);
constexpr unsigned kBitsPerByte = 8;

}  // namespace

std::string rawValue(const appkit::RGBA& color) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(kComponents * kComponentSize);
  for (const double component : {color.red, color.green, color.blue, color.opacity}) {
    const auto bits = std::bit_cast<std::uint64_t>(component);
    for (unsigned i = 0; i < kComponentSize; ++i) {
      bytes.push_back(static_cast<std::uint8_t>(bits >> (i * kBitsPerByte)));
    }
  }
  return foundation::base64Encoded(bytes);
}

std::optional<appkit::RGBA> colorFromRawValue(std::string_view rawValue) {
  const auto bytes = foundation::base64Decoded(rawValue);
  if (!bytes || bytes->size() != kComponents * kComponentSize) return std::nullopt;
  std::array<double, kComponents> components{};
  for (std::size_t i = 0; i < kComponents; ++i) {
    std::uint64_t bits = 0;
    for (std::size_t j = kComponentSize; j-- > 0;)
      bits = bits << kBitsPerByte | (*bytes)[i * kComponentSize + j];
    const auto component = std::bit_cast<double>(bits);
    // False for NaN too.
    const bool isInRange = component >= 0 && component <= 1;
    if (!isInRange) return std::nullopt;
    components.at(i) = component;
  }
  return appkit::RGBA{components[0], components[1], components[2], components[3]};
}

}  // namespace QEVCommonTools
