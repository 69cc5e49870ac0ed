#include "UpperCase.hpp"

#include <cstdint>
#include <locale>
#include <optional>
#include <stdexcept>

namespace viewkit {

namespace {

std::locale unicodeLocale() {
  try {
    return std::locale("C.UTF-8");
  } catch (const std::runtime_error&) {
    return std::locale::classic();
  }
}

// The next character, and the text without it; nothing where the text is not UTF-8.
std::optional<char32_t> decodeNext(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead >> 5 == 0x6 ? 2 : lead >> 4 == 0xe ? 3 : lead >> 3 == 0x1e ? 4 : 0;
  if (length == 0 || length > text.size()) return std::nullopt;
  char32_t character = length == 1 ? lead : lead & (0x7fU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<std::uint8_t>(text[i]);
    if (byte >> 6 != 0x2) return std::nullopt;
    character = character << 6 | (byte & 0x3fU);
  }
  text.remove_prefix(length);
  return character;
}

void append(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<std::uint8_t>(byte)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xc0 | character >> 6);
    put(0x80 | (character & 0x3f));
  } else if (character < 0x10000) {
    put(0xe0 | character >> 12);
    put(0x80 | (character >> 6 & 0x3f));
    put(0x80 | (character & 0x3f));
  } else {
    put(0xf0 | character >> 18);
    put(0x80 | (character >> 12 & 0x3f));
    put(0x80 | (character >> 6 & 0x3f));
    put(0x80 | (character & 0x3f));
  }
}

}  // namespace

std::string upperCased(std::string_view text) {
  static const std::locale locale = unicodeLocale();
  const auto& letters = std::use_facet<std::ctype<wchar_t>>(locale);
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto character = decodeNext(text);
    if (!character) {
      result += text.front();
      text.remove_prefix(1);
    } else if (*character == U'ß') {
      result += "SS";
    } else {
      append(result, static_cast<char32_t>(letters.toupper(static_cast<wchar_t>(*character))));
    }
  }
  return result;
}

}  // namespace viewkit
