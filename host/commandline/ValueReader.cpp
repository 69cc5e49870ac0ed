#include "commandline/ValueReader.hpp"

#include "foundation/Base64.hpp"
#include "foundation/Unicode.hpp"

#include <charconv>
#include <string>

namespace zorvantine {

using foundation::Error;
using foundation::Result;
using QEVSettings::PreferenceValue;

namespace {

template <class Number>
Result<PreferenceValue> readNumber(std::string_view text, const char* what) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::result_out_of_range)
    return Error{"“" + std::string(text) + "” is beyond the limits of " + what};
  if (error != std::errc() || stop != end) return Error{"“" + std::string(text) + "” is not " + what};
  return PreferenceValue(number);
}

Result<PreferenceValue> readBoolean(std::string_view text) {
  if (text == "true") return PreferenceValue(true);
  if (text == "false") return PreferenceValue(false);
  return Error{"“" + std::string(text) + "” is neither true nor false"};
}

Result<PreferenceValue> readText(std::string_view text) {
  if (!foundation::isValidUtf8(text)) return Error{"the text is not UTF-8; use --data for other bytes"};
  return PreferenceValue(text);
}

Result<PreferenceValue> readData(std::string_view text) {
  auto bytes = foundation::base64Decoded(text);
  if (!bytes) return Error{"“" + std::string(text) + "” is not base64"};
  return PreferenceValue(*std::move(bytes));
}

}  // namespace

Result<PreferenceValue> readValue(PreferenceValue::Type type, std::string_view text) {
  using Type = PreferenceValue::Type;
  switch (type) {
    case Type::integer: return readNumber<std::int64_t>(text, "a whole number of 64 bits");
    case Type::real: return readNumber<double>(text, "a real number");
    case Type::boolean: return readBoolean(text);
    case Type::string: return readText(text);
    case Type::data: return readData(text);
    default: return Error{"a value of this type comes from a property list only; use prefs import"};
  }
}

}  // namespace zorvantine
