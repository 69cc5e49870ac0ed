// SPDX-License-Identifier: MIT
#include "foundation/Base64.hpp"

#include <algorithm>
#include <array>

namespace foundation {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> kDigits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(kNoDigit);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return digits;
}();

}  // namespace

std::string base64Encoded(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (; !bytes.empty(); bytes = bytes.subspan(std::min<std::size_t>(bytes.size(), 3))) {
    const unsigned group = static_cast<unsigned>(bytes[0]) << 16 |
                           (bytes.size() > 1 ? bytes[1] : 0U) << 8 |
                           (bytes.size() > 2 ? bytes[2] : 0U);
    text += {kAlphabet[group >> 18], kAlphabet[group >> 12 & 63],
             bytes.size() > 1 ? kAlphabet[group >> 6 & 63] : '=',
             bytes.size() > 2 ? kAlphabet[group & 63] : '='};
  }
  return text;
}

std::optional<std::vector<std::uint8_t>> base64Decoded(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
  text.remove_suffix(padding);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() / 4 * 3 + 2);
  unsigned pending = 0;
  int bits = 0;
  for (const char c : text) {
    const std::uint8_t digit = kDigits[static_cast<unsigned char>(c)];
    if (digit == kNoDigit) return std::nullopt;
    pending = pending << 6 | digit;
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes.push_back(static_cast<std::uint8_t>(pending >> bits));
      pending &= (1U << bits) - 1;
    }
  }
  if (pending != 0) return std::nullopt;
  return bytes;
}

}  // namespace foundation
