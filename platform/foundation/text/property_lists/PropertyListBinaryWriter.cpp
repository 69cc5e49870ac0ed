// SPDX-License-Identifier: MIT
#include "foundation/PropertyList.hpp"
#include "foundation/Unicode.hpp"
#include "text/property_lists/PropertyListForms.hpp"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

// The text in UTF-16, most significant byte first. The text must be valid UTF-8.
std::string utf16(std::string_view text) {
  std::string units;
  const auto append = [&units](std::uint32_t unit) {
    units += static_cast<char>(unit >> 8U);
    units += static_cast<char>(unit & 0xFFU);
  };
  while (!text.empty()) {
    const std::size_t length = utf8CharacterLength(text);
    const auto byte = [&](std::size_t i) {
      return std::uint32_t{static_cast<std::uint8_t>(text[i])};
    };
    std::uint32_t character = length == 1 ? byte(0) : byte(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) character = character << 6U | (byte(i) & 0x3FU);
    if (character < 0x10000) {
      append(character);
    } else {
      character -= 0x10000;
      append(0xD800U | character >> 10U);
      append(0xDC00U | (character & 0x3FFU));
    }
    text.remove_prefix(length);
  }
  return units;
}

std::size_t bytesFor(std::uint64_t number) {
  std::size_t bytes = 1;
  while (bytes < 8 && number >> (8 * bytes) != 0) bytes *= 2;
  return bytes;
}

// Writes each container before its contents, and at the end the table of offsets.
class BinaryWriter {
public:
  Result<std::string> list(const PreferenceDictionary& values) {
    referenceBytes_ = bytesFor(countOf(values));
    bytes_ = kBinaryPropertyListMagic;
    append(values);
    if (error_) return *std::move(error_);
    const std::uint64_t table = bytes_.size();
    const std::size_t offsetBytes = bytesFor(table);
    for (const std::uint64_t offset : offsets_) appendNumber(offset, offsetBytes);
    bytes_.append(6, '\0');
    appendNumber(offsetBytes, 1);
    appendNumber(referenceBytes_, 1);
    appendNumber(offsets_.size(), 8);
    appendNumber(0, 8);
    appendNumber(table, 8);
    return std::move(bytes_);
  }

private:
  static std::uint64_t countOf(const PreferenceDictionary& entries) {
    std::uint64_t count = 1;
    for (const auto& [key, value] : entries) count += 1 + countOf(value);
    return count;
  }
  static std::uint64_t countOf(const PreferenceValue& value) {
    if (const auto* entries = value.asDictionary()) return countOf(*entries);
    std::uint64_t count = 1;
    if (const auto* elements = value.asArray()) {
      for (const PreferenceValue& element : *elements) count += countOf(element);
    }
    return count;
  }

  void fail(std::string message) {
    if (!error_) error_ = Error{std::move(message)};
  }

  void appendNumber(std::uint64_t number, std::size_t bytes) {
    while (bytes-- > 0) bytes_ += static_cast<char>(number >> (8 * bytes) & 0xFFU);
  }

  void appendMarker(unsigned kind, std::uint64_t count) {
    appendNumber(kind << 4U | std::min<std::uint64_t>(count, 0xF), 1);
    if (count < 0xF) return;
    const std::size_t bytes = bytesFor(count);
    appendNumber(0x10U | static_cast<unsigned>(std::countr_zero(bytes)), 1);
    appendNumber(count, bytes);
  }

  std::uint64_t begin() {
    offsets_.push_back(bytes_.size());
    return offsets_.size() - 1;
  }

  // The offsets of references that are filled in when their objects are written.
  std::size_t leaveReferences(std::uint64_t count) {
    const std::size_t at = bytes_.size();
    bytes_.append(count * referenceBytes_, '\0');
    return at;
  }
  void putReference(std::size_t& at, std::uint64_t object) {
    for (std::size_t i = referenceBytes_; i-- > 0;)
      bytes_[at++] = static_cast<char>(object >> (8 * i) & 0xFFU);
  }

  std::uint64_t append(const PreferenceDictionary& entries) {
    const std::uint64_t object = begin();
    appendMarker(0xD, entries.size());
    std::size_t keyAt = leaveReferences(entries.size());
    std::size_t valueAt = leaveReferences(entries.size());
    for (const auto& [key, value] : entries) {
      putReference(keyAt, append(key));
      putReference(valueAt, append(value));
    }
    return object;
  }

  std::uint64_t append(const PreferenceValue::Array& elements) {
    const std::uint64_t object = begin();
    appendMarker(0xA, elements.size());
    std::size_t at = leaveReferences(elements.size());
    for (const PreferenceValue& element : elements) putReference(at, append(element));
    return object;
  }

  std::uint64_t append(const std::string& text) {
    const std::uint64_t object = begin();
    if (!isValidUtf8(text))
      fail("a property list holds no text that is not UTF-8; remove it first");
    if (text.find('\0') != std::string::npos)
      fail("a property list holds no text with a NUL in it; remove it first");
    if (error_) return object;
    const bool isASCII = std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
    const std::string units = isASCII ? text : utf16(text);
    appendMarker(isASCII ? 0x5 : 0x6, isASCII ? units.size() : units.size() / 2);
    bytes_ += units;
    return object;
  }

  std::uint64_t append(const PreferenceValue& value) {
    switch (value.type()) {
      case PreferenceValue::Type::string: return append(*value.asString());
      case PreferenceValue::Type::array: return append(*value.asArray());
      case PreferenceValue::Type::dictionary: return append(*value.asDictionary());
      default: break;
    }
    const std::uint64_t object = begin();
    if (const auto integer = value.asInteger()) {
      appendInteger(*integer);
    } else if (const auto boolean = value.asBoolean()) {
      appendNumber(*boolean ? 0x09 : 0x08, 1);
    } else if (const auto real = value.asReal()) {
      appendNumber(0x23, 1);
      appendNumber(std::bit_cast<std::uint64_t>(*real), 8);
    } else if (const auto date = value.asDate()) {
      const double seconds = (*date - kBinaryPropertyListEpoch).count();
      if (!std::isfinite(seconds))
        fail("a property list holds no date that is no number; remove it first");
      appendNumber(0x33, 1);
      appendNumber(std::bit_cast<std::uint64_t>(seconds), 8);
    } else if (const auto* data = value.asData()) {
      appendMarker(0x4, data->size());
      bytes_.append(data->begin(), data->end());
    }
    return object;
  }

  // A negative number takes eight bytes, because shorter integers are unsigned.
  void appendInteger(std::int64_t integer) {
    const auto number = static_cast<std::uint64_t>(integer);
    const std::size_t bytes = bytesFor(number);
    appendNumber(0x10U | static_cast<unsigned>(std::countr_zero(bytes)), 1);
    appendNumber(number, bytes);
  }

  std::string bytes_;
  std::size_t referenceBytes_ = 1;
  std::vector<std::uint64_t> offsets_;
  std::optional<Error> error_;
};

}  // namespace

Result<std::string> binaryPropertyList(const PreferenceDictionary& values) {
  return BinaryWriter().list(values);
}

}  // namespace foundation
