// SPDX-License-Identifier: MIT
#include "foundation/JSONWriter.hpp"

#include "foundation/Unicode.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace foundation {

JSONWriter& JSONWriter::name(std::string_view name) {
  separate();
  quote(name);
  text_ += ':';
  followsValue_ = false;
  return *this;
}

JSONWriter& JSONWriter::integer(std::int64_t value) { return word(std::to_string(value)); }

JSONWriter& JSONWriter::real(double value) {
  if (!std::isfinite(value)) return null();
  std::array<char, 32> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return word({buffer.data(), end});
}

JSONWriter& JSONWriter::string(std::string_view value) {
  separate();
  quote(value);
  return *this;
}

JSONWriter& JSONWriter::value(const JSON& value) {
  separate();
  value.appendTo(text_);
  return *this;
}

JSONWriter& JSONWriter::object(const JSON& object, std::string_view member,
                               std::string_view string) {
  separate();
  JSONWriter valueWriter;
  valueWriter.quote(string);
  object.appendTo(text_, member, valueWriter.text());
  return *this;
}

std::string JSONWriter::takeText() {
  followsValue_ = false;
  return std::exchange(text_, {});
}

JSONWriter& JSONWriter::begin(char bracket) {
  separate();
  text_ += bracket;
  followsValue_ = false;
  return *this;
}

JSONWriter& JSONWriter::end(char bracket) {
  text_ += bracket;
  followsValue_ = true;
  return *this;
}

JSONWriter& JSONWriter::word(std::string_view word) {
  separate();
  text_ += word;
  return *this;
}

void JSONWriter::separate() {
  if (followsValue_) text_ += ',';
  followsValue_ = true;
}

void JSONWriter::quote(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (!isValidUtf8(text)) return quote(repairedUtf8(text));
  text_ += '"';
  for (const char c : text) {
    switch (c) {
      case '"': text_ += "\\\""; break;
      case '\\': text_ += "\\\\"; break;
      case '\n': text_ += "\\n"; break;
      case '\r': text_ += "\\r"; break;
      case '\t': text_ += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          text_ += "\\u00";
          text_ += {digits[static_cast<unsigned char>(c) >> 4],
                    digits[static_cast<unsigned char>(c) & 15]};
        } else {
          text_ += c;
        }
    }
  }
  text_ += '"';
}

}  // namespace foundation
