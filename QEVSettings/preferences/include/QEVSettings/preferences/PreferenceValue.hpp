// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace QEVSettings {

// A value of the preferences store, of any property-list type. The type is kept.
//
// A value is immutable and cheap to copy: text, bytes, arrays and dictionaries are shared between
// copies, so a snapshot of a whole store copies no contents.
//
//     const PreferenceValue value = std::string("Europe/Berlin");
//     if (const std::string* text = value.asString()) show(*text);
class PreferenceValue {
public:
  using Bytes = std::vector<std::uint8_t>;
  // Seconds since 1970-01-01 00:00:00 UTC, fractions kept.
  using Date = std::chrono::sys_time<std::chrono::duration<double>>;
  using Array = std::vector<PreferenceValue>;
  using Dictionary = std::map<std::string, PreferenceValue, std::less<>>;

  enum class Type { integer, boolean, real, string, data, date, array, dictionary };

  // Accepts only bool: a pointer or an optional, which would convert to it, does not compile.
  template <std::same_as<bool> Boolean>
  PreferenceValue(Boolean value) : value_(value) {}
  PreferenceValue(int value) : value_(std::int64_t{value}) {}
  PreferenceValue(std::int64_t value) : value_(value) {}
  PreferenceValue(double value) : value_(value) {}
  PreferenceValue(std::string value);
  PreferenceValue(std::string_view value);
  PreferenceValue(const char* value);
  PreferenceValue(Bytes value);
  PreferenceValue(Date value) : value_(value) {}
  PreferenceValue(Array value);
  PreferenceValue(Dictionary value);

  Type type() const { return static_cast<Type>(value_.index()); }

  // The contents when the value has exactly this type; nothing or null otherwise. A pointer is
  // valid as long as any copy of the value exists.
  std::optional<std::int64_t> asInteger() const;
  std::optional<bool> asBoolean() const;
  std::optional<double> asReal() const;
  const std::string* asString() const;
  const Bytes* asData() const;
  std::optional<Date> asDate() const;
  const Array* asArray() const;
  const Dictionary* asDictionary() const;

  // The conversions of a store's typed reads. Nothing for a type that does not convert.
  //
  // To an integer: a Boolean is 0 or 1. A real loses its fraction and is clamped to 64 bits. A text
  // is read up to the first character that is not a digit: "12 points" is 12, "none" is 0.
  // To a Boolean: a number is true unless it is 0. A text is true if it begins, after blanks, a
  // sign and zeros, with one of YyTt1-9. To a string: a number or a Boolean in decimal.
  std::optional<std::int64_t> convertedToInteger() const;
  std::optional<bool> convertedToBoolean() const;
  std::optional<std::string> convertedToString() const;

  // Same type and same contents.
  friend bool operator==(const PreferenceValue& a, const PreferenceValue& b);

private:
  template <class T>
  using Shared = std::shared_ptr<const T>;
  std::variant<std::int64_t, bool, double, Shared<std::string>, Shared<Bytes>, Date, Shared<Array>,
               Shared<Dictionary>>
      value_;
};

using PreferenceDictionary = PreferenceValue::Dictionary;

// "integer", "boolean", "real", "string", "data", "date", "array" or "dictionary".
std::string_view nameOf(PreferenceValue::Type type);

}  // namespace QEVSettings
