// SPDX-License-Identifier: MIT
#include "foundation/PreferenceCoding.hpp"

#include <algorithm>
#include <bit>
#include <string>
#include <string_view>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;

namespace {

class Encoder {
public:
  std::vector<std::uint8_t> takeBytes() { return std::move(bytes_); }

  bool append(const PreferenceValue& value, int depth) {
    if (depth > kMaximumPreferenceDepth) return false;
    bytes_.push_back(static_cast<std::uint8_t>(value.type()));
    switch (value.type()) {
      case PreferenceValue::Type::integer:
        appendWord(static_cast<std::uint64_t>(*value.asInteger()));
        return true;
      case PreferenceValue::Type::boolean:
        bytes_.push_back(*value.asBoolean() ? 1 : 0);
        return true;
      case PreferenceValue::Type::real: appendReal(*value.asReal()); return true;
      case PreferenceValue::Type::date:
        appendReal(value.asDate()->time_since_epoch().count());
        return true;
      case PreferenceValue::Type::string: appendBytes(*value.asString()); return true;
      case PreferenceValue::Type::data: appendBytes(*value.asData()); return true;
      case PreferenceValue::Type::array:
        appendCount(value.asArray()->size());
        return std::ranges::all_of(*value.asArray(), [&](const PreferenceValue& element) {
          return append(element, depth + 1);
        });
      case PreferenceValue::Type::dictionary:
        appendCount(value.asDictionary()->size());
        return std::ranges::all_of(*value.asDictionary(), [&](const auto& entry) {
          appendBytes(entry.first);
          return append(entry.second, depth + 1);
        });
    }
    return false;
  }

private:
  void appendCount(std::uint64_t count) {
    while (count >= 0x80) {
      bytes_.push_back(static_cast<std::uint8_t>(count | 0x80));
      count >>= 7;
    }
    bytes_.push_back(static_cast<std::uint8_t>(count));
  }
  void appendWord(std::uint64_t word) {
    for (int i = 0; i < 8; ++i) bytes_.push_back(static_cast<std::uint8_t>(word >> (8 * i)));
  }
  void appendReal(double real) { appendWord(std::bit_cast<std::uint64_t>(real)); }
  template <class Bytes>
  void appendBytes(const Bytes& bytes) {
    appendCount(bytes.size());
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  }

  std::vector<std::uint8_t> bytes_;
};

class Decoder {
public:
  explicit Decoder(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  bool isAtEnd() const { return rest_.empty(); }

  std::optional<PreferenceValue> value(int depth) {
    if (depth > kMaximumPreferenceDepth || rest_.empty()) return std::nullopt;
    switch (static_cast<PreferenceValue::Type>(bytes(1).front())) {
      case PreferenceValue::Type::integer:
        return made(word(), [](auto word) { return std::bit_cast<std::int64_t>(word); });
      case PreferenceValue::Type::boolean:
        if (rest_.empty()) return std::nullopt;
        return PreferenceValue(bytes(1).front() != 0);
      case PreferenceValue::Type::real:
        return made(word(), [](auto word) { return std::bit_cast<double>(word); });
      case PreferenceValue::Type::date:
        return made(word(), [](auto word) {
          return PreferenceValue::Date(
              PreferenceValue::Date::duration(std::bit_cast<double>(word)));
        });
      case PreferenceValue::Type::string:
        return made(text(), [](std::string text) { return text; });
      case PreferenceValue::Type::data:
        return made(run(), [](auto run) { return PreferenceValue::Bytes(run.begin(), run.end()); });
      case PreferenceValue::Type::array: return array(depth);
      case PreferenceValue::Type::dictionary: return dictionary(depth);
    }
    return std::nullopt;
  }

private:
  template <class Part, class Make>
  static std::optional<PreferenceValue> made(std::optional<Part> part, Make make) {
    if (!part) return std::nullopt;
    return PreferenceValue(make(std::move(*part)));
  }

  std::span<const std::uint8_t> bytes(std::size_t count) {
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

  std::optional<std::uint64_t> word() {
    if (rest_.size() < 8) return std::nullopt;
    std::uint64_t word = 0;
    const auto taken = bytes(8);
    for (std::size_t i = 0; i < 8; ++i) word |= std::uint64_t{taken[i]} << (8 * i);
    return word;
  }

  // Each element takes at least one byte, so that a count above the bytes left is wrong.
  std::optional<std::size_t> count() {
    std::uint64_t count = 0;
    for (int shift = 0; shift < 63 && !rest_.empty(); shift += 7) {
      const std::uint8_t byte = bytes(1).front();
      count |= std::uint64_t{byte & 0x7FU} << shift;
      if ((byte & 0x80) == 0)
        return count <= rest_.size() ? std::optional<std::size_t>(count) : std::nullopt;
    }
    return std::nullopt;
  }

  std::optional<std::span<const std::uint8_t>> run() {
    const auto length = count();
    if (!length) return std::nullopt;
    return bytes(*length);
  }

  std::optional<std::string> text() {
    const auto bytes = run();
    if (!bytes) return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
  }

  std::optional<PreferenceValue> array(int depth) {
    const auto size = count();
    if (!size) return std::nullopt;
    PreferenceValue::Array elements;
    for (std::size_t i = 0; i < *size; ++i) {
      auto element = value(depth + 1);
      if (!element) return std::nullopt;
      elements.push_back(std::move(*element));
    }
    return PreferenceValue(std::move(elements));
  }

  std::optional<PreferenceValue> dictionary(int depth) {
    const auto size = count();
    if (!size) return std::nullopt;
    PreferenceValue::Dictionary entries;
    for (std::size_t i = 0; i < *size; ++i) {
      auto key = text();
      auto element = key ? value(depth + 1) : std::nullopt;
      if (!element) return std::nullopt;
      entries.insert_or_assign(std::move(*key), std::move(*element));
    }
    return PreferenceValue(std::move(entries));
  }

  std::span<const std::uint8_t> rest_;
};

}  // namespace

std::optional<std::vector<std::uint8_t>> encodedPreference(const PreferenceValue& value) {
  Encoder encoder;
  if (!encoder.append(value, 0)) return std::nullopt;
  return encoder.takeBytes();
}

std::optional<PreferenceValue> decodedPreference(std::span<const std::uint8_t> bytes) {
  Decoder decoder(bytes);
  auto value = decoder.value(0);
  return value && decoder.isAtEnd() ? std::move(value) : std::nullopt;
}

}  // namespace foundation
