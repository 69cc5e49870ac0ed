// SPDX-License-Identifier: MIT
#include "text/property_lists/PropertyListText.hpp"

#include "foundation/Base64.hpp"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <limits>
#include <system_error>

namespace foundation {

using QEVSettings::PreferenceValue;

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool skip(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// The number that the whole text is. Nothing when it is malformed or does not fit.
template <class Number, class... Form>
std::optional<Number> wholeNumber(std::string_view text, Form... form) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, form...);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

// Removes that many digits from the front of the text and returns their number.
std::optional<unsigned> takeDigits(std::string_view& text, std::size_t count) {
  const std::string_view digits = text.substr(0, count);
  if (digits.size() < count || digits.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  text.remove_prefix(count);
  return wholeNumber<unsigned>(digits);
}

}  // namespace

std::optional<std::int64_t> integerOfText(std::string_view text) {
  text = trimmed(text);
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const int base = skip(text, "0x") || skip(text, "0X") ? 16 : 10;
  const auto magnitude = wholeNumber<std::uint64_t>(text, base);
  constexpr auto maximum = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (!magnitude || *magnitude > maximum + (isNegative ? 1 : 0)) return std::nullopt;
  return static_cast<std::int64_t>(isNegative ? 0 - *magnitude : *magnitude);
}

std::optional<double> realOfText(std::string_view text) {
  text = trimmed(text);
  if (skip(text, "+") && text.starts_with('-')) return std::nullopt;
  return wholeNumber<double>(text);
}

std::optional<PreferenceValue::Date> dateOfText(std::string_view text) {
  using namespace std::chrono;
  text = trimmed(text);
  std::array<unsigned, 6> parts{};
  constexpr std::array<std::size_t, 6> widths{4, 2, 2, 2, 2, 2};
  constexpr std::array<std::string_view, 6> separators{"", "-", "-", "T", ":", ":"};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!skip(text, separators[i])) return std::nullopt;
    const auto part = takeDigits(text, widths[i]);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  if (!text.ends_with('Z')) return std::nullopt;
  text.remove_suffix(1);
  double fraction = 0;
  if (!text.empty()) {
    const std::string_view digits = text.substr(1);
    if (text[0] != '.' || digits.find_first_not_of("0123456789") != std::string_view::npos)
      return std::nullopt;
    const auto read = wholeNumber<double>(text);
    if (!read) return std::nullopt;
    fraction = *read;
  }
  const year_month_day day{year(static_cast<int>(parts[0])), month(parts[1]),
                           std::chrono::day(parts[2])};
  if (!day.ok() || parts[3] > 23 || parts[4] > 59 || parts[5] > 59) return std::nullopt;
  const auto whole = sys_days(day) + hours(parts[3]) + minutes(parts[4]) + seconds(parts[5]);
  return PreferenceValue::Date(whole) + PreferenceValue::Date::duration(fraction);
}

std::optional<PreferenceValue::Bytes> dataOfText(std::string_view text) {
  std::string withoutBlanks(text);
  std::erase_if(withoutBlanks, [](char c) { return kBlanks.find(c) != std::string_view::npos; });
  return base64Decoded(withoutBlanks);
}

std::string textOfReal(double real) {
  std::array<char, 64> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), real).ptr};
}

std::optional<std::string> textOfDate(PreferenceValue::Date date) {
  using namespace std::chrono;
  constexpr PreferenceValue::Date first = sys_days(January / 1 / 0);
  constexpr PreferenceValue::Date end = sys_days(January / 1 / 10000);
  // Written so that NaN is refused.
  const bool hasFourDigits = date >= first && date < end;
  if (!hasFourDigits) return std::nullopt;
  const auto second = floor<seconds>(date);
  const auto midnight = floor<days>(second);
  const year_month_day day(midnight);
  const hh_mm_ss time(second - midnight);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                static_cast<unsigned>(day.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  return text.data();
}

}  // namespace foundation
