// SPDX-License-Identifier: MIT
#include "foundation/UUID.hpp"

#include "foundation/Ascii.hpp"

#include <random>

namespace foundation {

namespace {

bool isHyphenAfter(std::size_t byte) { return byte == 3 || byte == 5 || byte == 7 || byte == 9; }

std::mt19937_64 seededGenerator() {
  std::random_device device;
  std::seed_seq seeds{device(), device(), device(), device(),
                      device(), device(), device(), device()};
  return std::mt19937_64(seeds);
}

}  // namespace

UUID UUID::random() {
  // The random device takes microseconds for each identifier, and a long list makes thousands.
  thread_local std::mt19937_64 generator = seededGenerator();
  UUID uuid;
  for (std::size_t i = 0; i < uuid.bytes_.size(); i += 8) {
    const std::uint64_t bits = generator();
    for (std::size_t j = 0; j < 8; ++j)
      uuid.bytes_.at(i + j) = static_cast<std::uint8_t>(bits >> (8 * j));
  }
  uuid.bytes_[6] = static_cast<std::uint8_t>((uuid.bytes_[6] & 0x0F) | 0x40);
  uuid.bytes_[8] = static_cast<std::uint8_t>((uuid.bytes_[8] & 0x3F) | 0x80);
  return uuid;
}

std::optional<UUID> UUID::parse(std::string_view text) {
  constexpr std::size_t length = 36;
  if (text.size() != length) return std::nullopt;
  UUID uuid;
  for (std::size_t byte = 0; byte < uuid.bytes_.size(); ++byte) {
    const auto high = hexadecimalDigit(text[0]);
    const auto low = hexadecimalDigit(text[1]);
    if (!high || !low) return std::nullopt;
    uuid.bytes_.at(byte) = static_cast<std::uint8_t>(*high << 4 | *low);
    text.remove_prefix(2);
    if (isHyphenAfter(byte)) {
      if (text.front() != '-') return std::nullopt;
      text.remove_prefix(1);
    }
  }
  return uuid;
}

std::string UUID::text() const {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (std::size_t byte = 0; byte < bytes_.size(); ++byte) {
    text += {digits[bytes_.at(byte) >> 4], digits[bytes_.at(byte) & 15]};
    if (isHyphenAfter(byte)) text += '-';
  }
  return text;
}

}  // namespace foundation
