// SPDX-License-Identifier: MIT
#include "foundation/PropertyList.hpp"
#include "foundation/Unicode.hpp"
#include "text/property_lists/PropertyListFault.hpp"
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

constexpr std::size_t kTrailerBytes = 32;

// Reads the objects of a list. A table at its end holds their offsets. Arrays and dictionaries
// refer to objects by number. An object with several references is read once, and its value is
// shared.
class BinaryReader {
public:
  explicit BinaryReader(std::string_view bytes) : bytes_(bytes) {}

  Result<PreferenceDictionary> list() {
    const auto top = readTrailer();
    if (!top) return error_.value_or(Error{"the property list is damaged; choose another"});
    const auto value = read(*top, 0);
    if (error_) return *std::move(error_);
    const PreferenceDictionary* const entries = value->asDictionary();
    if (entries == nullptr) return noDictionaryFault();
    return *entries;
  }

private:
  // The amounts that are limited.
  struct Size {
    std::size_t values = 0;
    std::size_t bytes = 0;
  };
  struct Object {
    std::optional<PreferenceValue> value = std::nullopt;
    bool isOpen = false;  // being read, so that a reference to it is a cycle
    int height = 0;       // levels of arrays and dictionaries within
    Size size = {};       // counting each object as often as it is referred to
  };

  // The number of the topmost object.
  std::optional<std::uint64_t> readTrailer() {
    if (bytes_.size() < kBinaryPropertyListMagic.size() + kTrailerBytes) return std::nullopt;
    const std::size_t trailer = bytes_.size() - kTrailerBytes;
    offsetBytes_ = number(trailer + 6, 1);
    referenceBytes_ = number(trailer + 7, 1);
    const std::uint64_t count = number(trailer + 8, 8);
    const std::uint64_t top = number(trailer + 16, 8);
    table_ = number(trailer + 24, 8);
    const bool isTableWithin = table_ >= kBinaryPropertyListMagic.size() && table_ <= trailer;
    const bool areNumbersWide =
        offsetBytes_ >= 1 && offsetBytes_ <= 8 && referenceBytes_ >= 1 && referenceBytes_ <= 8;
    if (!isTableWithin || !areNumbersWide || top >= count ||
        count > (trailer - table_) / offsetBytes_) {
      return std::nullopt;
    }
    // Each value may have a key of its own.
    if (count > 2 * kMaximumPropertyListValues + 1) return fail(top, countProblem());
    objects_.resize(count);
    return top;
  }

  // Most significant byte first.
  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t number = 0;
    for (const char c : bytes_.substr(at, size))
      number = number << 8 | static_cast<std::uint8_t>(c);
    return number;
  }

  std::uint64_t offsetOf(std::uint64_t index) const {
    return number(table_ + index * offsetBytes_, offsetBytes_);
  }

  std::nullopt_t fail(std::uint64_t index, std::string_view problem) {
    if (!error_) error_ = propertyListFault("object " + std::to_string(index), keys_, problem);
    return std::nullopt;
  }
  std::nullopt_t failAsDamaged(std::uint64_t index) { return fail(index, "it is damaged"); }

  bool spend(std::uint64_t index, Size size) {
    spent_.values += size.values;
    spent_.bytes += size.bytes;
    // The top level does not count as a value.
    if (spent_.values > kMaximumPropertyListValues + 1) fail(index, countProblem());
    if (spent_.bytes > bytes_.size() + kMaximumPropertyListRepeatedBytes) {
      fail(index, "the list unfolds to far more text and data than it holds");
    }
    return !error_;
  }

  std::optional<PreferenceValue> read(std::uint64_t index, int depth) {
    if (index >= objects_.size()) return fail(index, "there is no such object");
    Object& object = objects_[index];
    if (object.isOpen) return fail(index, "it holds itself");
    if (depth + object.height > kMaximumPropertyListDepth + 1) return fail(index, depthProblem());
    if (object.value) {
      if (!spend(index, object.size)) return std::nullopt;
      return object.value;
    }
    const Size before = spent_;
    if (!spend(index, {.values = 1})) return std::nullopt;
    const std::uint64_t at = offsetOf(index);
    if (at < kBinaryPropertyListMagic.size() || at >= table_) return failAsDamaged(index);
    object.value = readAt(at, index, depth);
    object.size = {.values = spent_.values - before.values, .bytes = spent_.bytes - before.bytes};
    return object.value;
  }

  std::optional<PreferenceValue> readAt(std::uint64_t at, std::uint64_t index, int depth) {
    const auto marker = static_cast<std::uint8_t>(bytes_[at]);
    const unsigned low = marker & 0xFU;
    switch (marker >> 4U) {
      case 0x0:
        if (marker == 0x08 || marker == 0x09) return PreferenceValue(marker == 0x09);
        return fail(index, "the store has no such type");
      case 0x1: return readInteger(at + 1, low, index);
      case 0x2: return readReal(at + 1, low, index);
      case 0x3: return readDate(at + 1, low, index);
      case 0x4:
      case 0x5:
      case 0x6: return readRun(at, marker >> 4U, index);
      case 0xA:
      case 0xC: return readArray(at, index, depth);
      case 0xD: return readDictionary(at, index, depth);
      case 0x8:
        return fail(index, "it is a unique identifier, a type that the store does not have");
      default: return fail(index, "the store has no such type");
    }
  }

  bool isWithin(std::uint64_t at, std::uint64_t count, std::uint64_t unitBytes) const {
    return at <= table_ && count <= (table_ - at) / unitBytes;
  }

  // Integers of up to four bytes are unsigned. Sixteen bytes are an integer of 128 bits.
  std::optional<PreferenceValue> readInteger(std::uint64_t at, unsigned width,
                                             std::uint64_t index) {
    if (width > 4 || !isWithin(at, 1, std::uint64_t{1} << width)) return failAsDamaged(index);
    if (width < 4)
      return PreferenceValue(static_cast<std::int64_t>(number(at, std::size_t{1} << width)));
    const std::uint64_t high = number(at, 8);
    const auto low = static_cast<std::int64_t>(number(at + 8, 8));
    if (high != (low < 0 ? ~std::uint64_t{0} : 0))
      return fail(index, "the integer does not fit 64 bits with a sign");
    return PreferenceValue(low);
  }

  std::optional<PreferenceValue> readReal(std::uint64_t at, unsigned width, std::uint64_t index) {
    if ((width != 2 && width != 3) || !isWithin(at, 1, std::uint64_t{1} << width))
      return failAsDamaged(index);
    if (width == 3) return PreferenceValue(std::bit_cast<double>(number(at, 8)));
    return PreferenceValue(double{std::bit_cast<float>(static_cast<std::uint32_t>(number(at, 4)))});
  }

  std::optional<PreferenceValue> readDate(std::uint64_t at, unsigned width, std::uint64_t index) {
    if (width != 3 || !isWithin(at, 1, 8)) return failAsDamaged(index);
    const auto seconds = std::bit_cast<double>(number(at, 8));
    if (!std::isfinite(seconds)) return fail(index, "the date is no number");
    return PreferenceValue(kBinaryPropertyListEpoch + PreferenceValue::Date::duration(seconds));
  }

  // Returns the number of units of the object, and moves to the first.
  std::optional<std::uint64_t> readCount(std::uint64_t& at) const {
    const std::uint64_t inMarker = static_cast<std::uint8_t>(bytes_[at++]) & 0xFU;
    if (inMarker != 0xF) return inMarker;
    if (at >= table_) return std::nullopt;
    const auto marker = static_cast<std::uint8_t>(bytes_[at++]);
    const unsigned width = marker & 0xFU;
    if (marker >> 4U != 1 || width > 3 || !isWithin(at, 1, std::uint64_t{1} << width))
      return std::nullopt;
    const std::uint64_t count = number(at, std::size_t{1} << width);
    at += std::uint64_t{1} << width;
    return count;
  }

  // Data, or text in one of its two encodings.
  std::optional<PreferenceValue> readRun(std::uint64_t at, unsigned kind, std::uint64_t index) {
    const std::uint64_t unitBytes = kind == 0x6 ? 2 : 1;
    const auto units = readCount(at);
    if (!units || !isWithin(at, *units, unitBytes)) return failAsDamaged(index);
    const std::string_view run = bytes_.substr(at, *units * unitBytes);
    if (!spend(index, {.bytes = run.size()})) return std::nullopt;
    if (kind == 0x4) return PreferenceValue(PreferenceValue::Bytes(run.begin(), run.end()));
    std::optional<std::string> text(run);
    // The byte-order mark is added because the order would be guessed otherwise.
    if (kind == 0x6) text = utf8FromUtf16("\xFE\xFF" + *text);
    if (!text || !isValidUtf8(*text)) return fail(index, "this is no text in Unicode");
    if (text->find('\0') != std::string::npos) return fail(index, "there is a NUL in the text");
    return PreferenceValue(*std::move(text));
  }

  std::uint64_t reference(std::uint64_t at, std::uint64_t number) const {
    return this->number(at + number * referenceBytes_, referenceBytes_);
  }

  // An element of an array, or a value of a dictionary with its key.
  std::optional<PreferenceValue> readInside(std::uint64_t container, std::uint64_t index, int depth,
                                            std::string_view key) {
    keys_.push_back(key);
    objects_[container].isOpen = true;
    auto value = read(index, depth + 1);
    objects_[container].isOpen = false;
    keys_.pop_back();
    if (value)
      objects_[container].height = std::max(objects_[container].height, objects_[index].height + 1);
    return value;
  }

  std::optional<PreferenceValue> readArray(std::uint64_t at, std::uint64_t index, int depth) {
    const auto count = readCount(at);
    if (!count || !isWithin(at, *count, referenceBytes_)) return failAsDamaged(index);
    PreferenceValue::Array elements;
    for (std::uint64_t i = 0; i < *count; ++i) {
      auto element = readInside(index, reference(at, i), depth, {});
      if (!element) return std::nullopt;
      elements.push_back(*std::move(element));
    }
    return PreferenceValue(std::move(elements));
  }

  std::optional<PreferenceValue> readDictionary(std::uint64_t at, std::uint64_t index, int depth) {
    const auto count = readCount(at);
    if (!count || !isWithin(at, *count, referenceBytes_ * 2)) return failAsDamaged(index);
    PreferenceDictionary entries;
    for (std::uint64_t i = 0; i < *count; ++i) {
      const auto key = readKey(reference(at, i));
      if (!key) return std::nullopt;
      const std::string& name = *key->asString();
      auto value = readInside(index, reference(at, *count + i), depth, name);
      if (!value) return std::nullopt;
      entries.insert_or_assign(name, *std::move(value));
    }
    return PreferenceValue(std::move(entries));
  }

  // A key must be text, so reading it never recurses. Its bytes are counted, but not as a value.
  std::optional<PreferenceValue> readKey(std::uint64_t index) {
    if (index >= objects_.size()) return fail(index, "there is no such object");
    const std::uint64_t at = offsetOf(index);
    const unsigned kind = at < table_ ? static_cast<std::uint8_t>(bytes_[at]) >> 4U : 0;
    if (kind != 0x5 && kind != 0x6) return fail(index, "a key is no text");
    auto key = read(index, 0);
    if (key) --spent_.values;
    return key;
  }

  std::string_view bytes_;
  std::size_t offsetBytes_ = 0;
  std::size_t referenceBytes_ = 0;
  std::uint64_t table_ = 0;
  std::vector<Object> objects_;
  std::vector<std::string_view> keys_;
  Size spent_;
  std::optional<Error> error_;
};

}  // namespace

Result<PreferenceDictionary> parseBinaryPropertyList(std::string_view bytes) {
  return BinaryReader(bytes).list();
}

}  // namespace foundation
