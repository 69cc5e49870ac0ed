// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace foundation {

// Where the header of a database file has these numbers of four bytes.
inline constexpr std::size_t kUserVersionOffset = 60;
inline constexpr std::size_t kApplicationIdOffset = 68;

// Numbers in the encoding of database files. The caller checks that the bytes exist.
inline std::uint32_t bigEndian16(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint32_t>(bytes[0] << 8 | bytes[1]);
}
inline std::uint32_t bigEndian32(std::span<const std::uint8_t> bytes) {
  return bigEndian16(bytes) << 16 | bigEndian16(bytes.subspan(2));
}
inline std::uint64_t bigEndian64(std::span<const std::uint8_t> bytes) {
  return std::uint64_t{bigEndian32(bytes)} << 32 | bigEndian32(bytes.subspan(4));
}

// Removes a number of one to nine bytes from the front; nothing when the bytes end before it does.
inline std::optional<std::uint64_t> takeVariableInteger(std::span<const std::uint8_t>& bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < 9 && i < bytes.size(); ++i) {
    const bool isLast = i == 8;
    number = isLast ? number << 8 | bytes[i] : number << 7 | (bytes[i] & 0x7FU);
    if (isLast || (bytes[i] & 0x80U) == 0) {
      bytes = bytes.subspan(i + 1);
      return number;
    }
  }
  return std::nullopt;
}

}  // namespace foundation
