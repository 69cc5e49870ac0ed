// SPDX-License-Identifier: MIT
#include "store/RowChecksum.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <variant>

// Compiles the hash in, so that no library has to be linked.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace foundation {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::int64_t kTypeOfRemoval = -1;
constexpr std::size_t kWordBytes = sizeof(std::uint64_t);

Bytes bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::optional<std::uint64_t> wordOf(const DatabaseValue& value) {
  if (const auto* integer = std::get_if<std::int64_t>(&value))
    return static_cast<std::uint64_t>(*integer);
  if (const auto* real = std::get_if<double>(&value)) return std::bit_cast<std::uint64_t>(*real);
  return std::nullopt;
}

std::uint64_t hash(Bytes bytes, std::uint64_t seed) {
  return XXH3_64bits_withSeed(bytes.data(), bytes.size(), seed);
}

// The function of format 1. It reads its input as words of eight bytes, the least significant
// first, and counts the bytes of a text.
class FormerChecksum {
public:
  void add(std::uint64_t word) {
    sum_ = (sum_ ^ word) * 0x9E3779B97F4A7C15;
    sum_ ^= sum_ >> 32;
  }
  void add(Bytes bytes) {
    add(bytes.size());
    for (; bytes.size() >= kWordBytes; bytes = bytes.subspan(kWordBytes))
      add(word(bytes.first(kWordBytes)));
    add(word(bytes));
  }
  std::int64_t value() const { return static_cast<std::int64_t>(sum_); }

private:
  static std::uint64_t word(Bytes bytes) {
    std::uint64_t word = 0;
    if constexpr (std::endian::native == std::endian::little) {
      if (!bytes.empty()) std::memcpy(&word, bytes.data(), bytes.size());
    } else {
      for (std::size_t i = 0; i < bytes.size(); ++i) word |= std::uint64_t{bytes[i]} << (8 * i);
    }
    return word;
  }

  std::uint64_t sum_ = 0x5A56505250524546;
};

std::int64_t formerRowChecksum(const RowContents& row) {
  FormerChecksum sum;
  sum.add(bytesOf(row.key));
  sum.add(static_cast<std::uint64_t>(row.type.value_or(kTypeOfRemoval)));
  if (const auto word = wordOf(row.value)) {
    sum.add(*word);
  } else if (const auto* bytes = std::get_if<Bytes>(&row.value)) {
    sum.add(*bytes);
  }
  return sum.value();
}

}  // namespace

std::int64_t rowChecksum(const RowContents& row) {
  const auto type = static_cast<std::uint64_t>(row.type.value_or(kTypeOfRemoval));
  const std::uint64_t seed = hash(bytesOf(row.key), type);
  if (const auto word = wordOf(row.value)) {
    std::array<std::uint8_t, kWordBytes> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
      bytes.at(i) = static_cast<std::uint8_t>(*word >> (8 * i));
    return static_cast<std::int64_t>(hash(bytes, seed));
  }
  const auto* bytes = std::get_if<Bytes>(&row.value);
  return static_cast<std::int64_t>(hash(bytes != nullptr ? *bytes : Bytes(), seed));
}

bool isRowChecksum(std::int64_t checksum, const RowContents& row) {
  return checksum == rowChecksum(row) || checksum == formerRowChecksum(row);
}

}  // namespace foundation
