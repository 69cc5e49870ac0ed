// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace QEVSettings {

namespace {

template <class T>
const T* pointee(const std::shared_ptr<const T>* shared) {
  return shared ? shared->get() : nullptr;
}

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view withoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::int64_t integerFromText(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (text.size() > 1 && text.front() == '+' && isDigit(text[1])) text.remove_prefix(1);
  std::int64_t result = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
  if (error == std::errc::result_out_of_range) {
    return text.front() == '-' ? std::numeric_limits<std::int64_t>::min()
                               : std::numeric_limits<std::int64_t>::max();
  }
  return result;
}

bool booleanFromText(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
  while (!text.empty() && text.front() == '0') text.remove_prefix(1);
  if (text.empty()) return false;
  const char first = text.front();
  return first == 'Y' || first == 'y' || first == 'T' || first == 't' ||
         (first >= '1' && first <= '9');
}

std::int64_t truncated(double value) {
  if (std::isnan(value)) return 0;
  constexpr double limit = 9223372036854775808.0;  // 2^63, the first value above the type
  if (value >= limit) return std::numeric_limits<std::int64_t>::max();
  if (value < -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

template <class Number>
std::string decimal(Number number) {
  std::array<char, 32> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), end};
}

}  // namespace

PreferenceValue::PreferenceValue(std::string value)
    : value_(std::make_shared<const std::string>(std::move(value))) {}
PreferenceValue::PreferenceValue(std::string_view value) : PreferenceValue(std::string(value)) {}
PreferenceValue::PreferenceValue(const char* value) : PreferenceValue(std::string(value)) {}
PreferenceValue::PreferenceValue(Bytes value)
    : value_(std::make_shared<const Bytes>(std::move(value))) {}
PreferenceValue::PreferenceValue(Array value)
    : value_(std::make_shared<const Array>(std::move(value))) {}
PreferenceValue::PreferenceValue(Dictionary value)
    : value_(std::make_shared<const Dictionary>(std::move(value))) {}

std::optional<std::int64_t> PreferenceValue::asInteger() const {
  const auto* value = std::get_if<std::int64_t>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<bool> PreferenceValue::asBoolean() const {
  const auto* value = std::get_if<bool>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<double> PreferenceValue::asReal() const {
  const auto* value = std::get_if<double>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<PreferenceValue::Date> PreferenceValue::asDate() const {
  const auto* value = std::get_if<Date>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

const std::string* PreferenceValue::asString() const {
  return pointee(std::get_if<Shared<std::string>>(&value_));
}
const PreferenceValue::Bytes* PreferenceValue::asData() const {
  return pointee(std::get_if<Shared<Bytes>>(&value_));
}
const PreferenceValue::Array* PreferenceValue::asArray() const {
  return pointee(std::get_if<Shared<Array>>(&value_));
}
const PreferenceValue::Dictionary* PreferenceValue::asDictionary() const {
  return pointee(std::get_if<Shared<Dictionary>>(&value_));
}

std::optional<std::int64_t> PreferenceValue::convertedToInteger() const {
  switch (type()) {
    case Type::integer: return *asInteger();
    case Type::boolean: return *asBoolean() ? 1 : 0;
    case Type::real: return truncated(*asReal());
    case Type::string: return integerFromText(*asString());
    default: return std::nullopt;
  }
}

std::optional<bool> PreferenceValue::convertedToBoolean() const {
  switch (type()) {
    case Type::integer: return *asInteger() != 0;
    case Type::boolean: return *asBoolean();
    case Type::real: return *asReal() != 0;
    case Type::string: return booleanFromText(*asString());
    default: return std::nullopt;
  }
}

std::optional<std::string> PreferenceValue::convertedToString() const {
  switch (type()) {
    case Type::integer: return decimal(*asInteger());
    case Type::boolean: return *asBoolean() ? "1" : "0";
    case Type::real: return decimal(*asReal());
    case Type::string: return *asString();
    default: return std::nullopt;
  }
}

bool operator==(const PreferenceValue& a, const PreferenceValue& b) {
  if (a.value_.index() != b.value_.index()) return false;
  return std::visit(
      []<class T>(const T& left, const auto& right) {
        if constexpr (!std::is_same_v<T, std::decay_t<decltype(right)>>) {
          return false;
        } else if constexpr (requires { left.get(); }) {
          return left == right || *left == *right;
        } else {
          return left == right;
        }
      },
      a.value_, b.value_);
}

std::string_view nameOf(PreferenceValue::Type type) {
  constexpr std::array<std::string_view, 8> names{"integer", "boolean", "real",  "string",
                                                  "data",    "date",    "array", "dictionary"};
  return names.at(static_cast<std::size_t>(type));
}

}  // namespace QEVSettings
