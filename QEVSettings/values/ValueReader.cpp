// SPDX-License-Identifier: MIT
#include "QEVSettings/ValueReader.hpp"

#include "foundation/Base64.hpp"
#include "foundation/JSON.hpp"
#include "foundation/Translation.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace QEVSettings {

using foundation::Error;
using foundation::JSON;
using foundation::Result;
using foundation::translated;

namespace {

// The messages say that the text is no such number, or beyond the limits of one.
template <class Number>
Result<PreferenceValue> readNumber(std::string_view text, const char* noNumber,
                                   const char* beyondLimits) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::result_out_of_range) return Error{translated(beyondLimits, {text})};
  if (error != std::errc() || stop != end) return Error{translated(noNumber, {text})};
  return PreferenceValue(number);
}

constexpr const char* kNoInteger = "“%1” is not a whole number of 64 bits";
constexpr const char* kIntegerBeyondLimits =
    "“%1” is beyond the limits of a whole number of 64 bits";
constexpr const char* kNoReal = "“%1” is not a real number";
constexpr const char* kRealBeyondLimits = "“%1” is beyond the limits of a real number";

Result<PreferenceValue> readReal(std::string_view text) {
  auto value = readNumber<double>(text, kNoReal, kRealBeyondLimits);
  if (value && std::isnan(value->asReal().value_or(0))) return Error{translated(kNoReal, {text})};
  return value;
}

Result<PreferenceValue> readBoolean(std::string_view text) {
  if (text == "true") return PreferenceValue(true);
  if (text == "false") return PreferenceValue(false);
  return Error{translated("“%1” is neither true nor false", {text})};
}

Result<PreferenceValue> readText(std::string_view text) {
  if (!foundation::isValidUtf8(text))
    return Error{translated("the text is not UTF-8; use --data for other bytes")};
  return PreferenceValue(text);
}

Result<PreferenceValue> readData(std::string_view text) {
  auto bytes = foundation::base64Decoded(text);
  if (!bytes) return Error{translated("“%1” is not base64", {text})};
  return PreferenceValue(*std::move(bytes));
}

// Reads and removes digits at the front of the text. Nothing when other characters are among them.
std::optional<unsigned> takeNumber(std::string_view& text, std::size_t digits) {
  unsigned number = 0;
  if (text.size() < digits) return std::nullopt;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + digits, number);
  if (error != std::errc() || stop != text.data() + digits) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

bool takeCharacter(std::string_view& text, char expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(1);
  return true;
}

// Reads and removes the digits of a fraction.
std::optional<double> takeFraction(std::string_view& text) {
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  double fraction = 0;
  const std::string number = "0." + std::string(text.substr(0, digits));
  if (digits == 0 ||
      std::from_chars(number.data(), number.data() + number.size(), fraction).ec != std::errc()) {
    return std::nullopt;
  }
  text.remove_prefix(digits);
  return fraction;
}

std::optional<PreferenceValue::Date> dateOf(std::string_view text) {
  using namespace std::chrono;
  std::array<unsigned, 6> parts{};
  constexpr std::string_view separators = "--T::";
  for (std::size_t at = 0; at < parts.size(); ++at) {
    if (at > 0 && !takeCharacter(text, separators[at - 1])) return std::nullopt;
    const auto number = takeNumber(text, at == 0 ? 4 : 2);
    if (!number) return std::nullopt;
    parts.at(at) = *number;
  }
  std::optional<double> fraction = 0.0;
  if (takeCharacter(text, '.')) fraction = takeFraction(text);
  const year_month_day day{year(static_cast<int>(parts[0])), month(parts[1]),
                           std::chrono::day(parts[2])};
  const bool isTime = parts[3] < 24 && parts[4] < 60 && parts[5] < 60;
  if (!fraction || text != "Z" || !day.ok() || !isTime) return std::nullopt;
  const sys_seconds whole = sys_days(day) + hours(parts[3]) + minutes(parts[4]) + seconds(parts[5]);
  return PreferenceValue::Date(
      duration<double>(static_cast<double>(whole.time_since_epoch().count()) + *fraction));
}

Result<PreferenceValue> readDate(std::string_view text) {
  if (const auto date = dateOf(text)) return PreferenceValue(*date);
  return Error{translated("“%1” is no date such as 2026-03-01T12:30:00Z", {text})};
}

Result<PreferenceValue> arrayOf(const JSON& json) {
  PreferenceValue::Array array;
  for (const JSON& element : json.elements()) {
    auto value = preferenceOf(element);
    if (!value) return value;
    array.push_back(*std::move(value));
  }
  return PreferenceValue(std::move(array));
}

Result<PreferenceValue> dictionaryOf(const JSON& json) {
  PreferenceValue::Dictionary dictionary;
  for (const JSON::Member& member : json.members()) {
    auto value = preferenceOf(member.value);
    if (!value) return value;
    dictionary.insert_or_assign(member.name, *std::move(value));
  }
  return PreferenceValue(std::move(dictionary));
}

}  // namespace

// The parser bounds how deep arrays and objects are nested.
Result<PreferenceValue> preferenceOf(const JSON& json) {
  switch (json.type()) {
    case JSON::Type::null: break;
    case JSON::Type::boolean: return PreferenceValue(*json.asBoolean());
    case JSON::Type::string: return PreferenceValue(*json.asString());
    case JSON::Type::array: return arrayOf(json);
    case JSON::Type::object: return dictionaryOf(json);
    case JSON::Type::number:
      // "1.0" and "1e0" are reals, although they are whole.
      if (json.numberText()->find_first_of(".eE") == std::string_view::npos) {
        if (const auto integer = json.asInteger()) return PreferenceValue(*integer);
      }
      if (const auto real = json.asReal()) return PreferenceValue(*real);
      return Error{translated(kRealBeyondLimits, {*json.numberText()})};
  }
  return Error{translated("null is no value of a preference; use prefs delete to remove a key")};
}

Result<PreferenceValue> readJSONValue(std::string_view text) {
  const auto json = JSON::parse(std::string(text));
  if (!json) return Error{translated("the value is not JSON: %1", {json.error().message})};
  return preferenceOf(*json);
}

Result<PreferenceValue> readValue(PreferenceValue::Type type, std::string_view text) {
  using Type = PreferenceValue::Type;
  switch (type) {
    case Type::integer: return readNumber<std::int64_t>(text, kNoInteger, kIntegerBeyondLimits);
    case Type::real: return readReal(text);
    case Type::boolean: return readBoolean(text);
    case Type::string: return readText(text);
    case Type::data: return readData(text);
    case Type::date: return readDate(text);
    case Type::array:
    case Type::dictionary: break;
  }
  return Error{translated("an array or a dictionary is given as JSON; use --json")};
}

}  // namespace QEVSettings
