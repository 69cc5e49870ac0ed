// SPDX-License-Identifier: MIT
#include "commandline/TextForm.hpp"

#include "commandline/PreferenceJSON.hpp"
#include "foundation/Base64.hpp"
#include "foundation/JSONWriter.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace zorvantine {

using QEVSettings::PreferenceValue;

namespace {

// C0, DEL and C1 controls, the two separators that terminals take for line ends, and the characters
// that change the direction in which the text around them is shown.
bool isControl(std::string_view character) {
  const auto first = static_cast<std::uint8_t>(character[0]);
  if (character.size() == 1) return first < 0x20 || first == 0x7F;
  if (character.size() == 2 && first == 0xC2) return static_cast<std::uint8_t>(character[1]) < 0xA0;
  constexpr std::array<std::string_view, 14> others{
      "\u2028", "\u2029", "\u061C", "\u200E", "\u200F", "\u202A", "\u202B",
      "\u202C", "\u202D", "\u202E", "\u2066", "\u2067", "\u2068", "\u2069"};
  return std::ranges::find(others, character) != others.end();
}

void appendWrittenOut(std::string& line, char byte) {
  switch (byte) {
    case '\n': line += "\\n"; return;
    case '\r': line += "\\r"; return;
    case '\t': line += "\\t"; return;
    default: break;
  }
  constexpr std::string_view digits = "0123456789abcdef";
  const auto value = static_cast<std::uint8_t>(byte);
  line += "\\x";
  line += digits[value >> 4U];
  line += digits[value & 0xFU];
}

}  // namespace

std::string onOneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const std::size_t length = foundation::utf8CharacterLength(text);
    const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
    if (length == 0 || isControl(character)) {
      for (const char byte : character) appendWrittenOut(line, byte);
    } else {
      line += character;
    }
    text.remove_prefix(character.size());
  }
  return line;
}

std::string escapedLines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    const bool isLine = text[end] == '\n';
    lines += onOneLine(text.substr(0, isLine ? end : end + 1));
    if (isLine) lines += '\n';
    text.remove_prefix(end + 1);
  }
  return lines;
}

std::string shortened(std::string_view text, std::size_t characters) {
  std::string_view rest = text;
  for (; !rest.empty() && characters > 0; --characters) {
    rest.remove_prefix(std::max<std::size_t>(foundation::utf8CharacterLength(rest), 1));
  }
  if (rest.empty()) return std::string(text);
  const std::size_t kept = text.size() - rest.size();
  return std::string(text.substr(0, kept)) + "… (" + std::to_string(rest.size()) + " bytes more)";
}

std::string textForm(const PreferenceValue& value) {
  switch (value.type()) {
    case PreferenceValue::Type::boolean: return *value.asBoolean() ? "true" : "false";
    case PreferenceValue::Type::data: return foundation::base64Encoded(*value.asData());
    case PreferenceValue::Type::date: return textForm(*value.asDate());
    case PreferenceValue::Type::array:
    case PreferenceValue::Type::dictionary: {
      foundation::JSONWriter writer;
      writePreference(writer, value);
      return writer.takeText();
    }
    default: return value.convertedToString().value_or("");
  }
}

std::string textForm(PreferenceValue::Date date) {
  const double seconds = date.time_since_epoch().count();
  // ISO 8601 writes these years with four digits. Dates outside them are given in seconds.
  constexpr double firstSecond = -62167219200.0;  // 0000-01-01
  constexpr double endSecond = 253402300800.0;    // 10000-01-01
  const bool hasFourDigits = seconds >= firstSecond && seconds < endSecond;
  if (!hasFourDigits) {
    return PreferenceValue(seconds).convertedToString().value_or("") + " seconds since 1970";
  }
  using namespace std::chrono;
  const auto microsecond = floor<microseconds>(date);
  const auto day = floor<days>(microsecond);
  const year_month_day calendar(day);
  const hh_mm_ss time(microsecond - day);
  std::array<char, 48> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02d",
                static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                static_cast<unsigned>(calendar.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  std::string text = buffer.data();
  if (const auto fraction = time.subseconds().count(); fraction > 0) {
    std::snprintf(buffer.data(), buffer.size(), ".%06d", static_cast<int>(fraction));
    text += buffer.data();
    text.erase(text.find_last_not_of('0') + 1);
  }
  return text + 'Z';
}

}  // namespace zorvantine
