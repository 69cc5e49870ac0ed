// SPDX-License-Identifier: MIT
#include "PortsText.hpp"

#include "foundation/Unicode.hpp"

#include <algorithm>
#include <array>
#include <iterator>

namespace QEVModels {

namespace {

constexpr std::size_t kShownCharacters = 32;
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFullWidthZero = 0xFF10;

// A blank is white space within a line, or an invisible character that pasted text may contain. A
// line end is a separator, as a comma is.
enum class Meaning : std::uint8_t { digit, dash, blank, separator, other };

struct Signs {
  char32_t first;
  char32_t last;
  Meaning meaning;
};

// The signs of all scripts and widths, in ascending order. The wave dash means "to" in East Asian
// text.
constexpr std::array kSigns{
    Signs{U'\t', U'\t', Meaning::blank}, Signs{U'\n', U'\r', Meaning::separator},
    Signs{U' ', U' ', Meaning::blank}, Signs{U',', U',', Meaning::separator},
    Signs{U'-', U'-', Meaning::dash}, Signs{U'0', U'9', Meaning::digit},
    Signs{U';', U';', Meaning::separator}, Signs{0x85, 0x85, Meaning::separator},  // next line
    Signs{0xA0, 0xA0, Meaning::blank},                                             // no-break space
    Signs{0x58A, 0x58A, Meaning::dash},         // Armenian hyphen
    Signs{0x5BE, 0x5BE, Meaning::dash},         // Hebrew maqaf
    Signs{0x60C, 0x60C, Meaning::separator},    // Arabic comma
    Signs{0x61B, 0x61B, Meaning::separator},    // Arabic semicolon
    Signs{0x61C, 0x61C, Meaning::blank},        // Arabic letter mark
    Signs{0x1400, 0x1400, Meaning::dash},       // Canadian syllabics hyphen
    Signs{0x1680, 0x1680, Meaning::blank},      // Ogham space
    Signs{0x1806, 0x1806, Meaning::dash},       // Mongolian hyphen
    Signs{0x2000, 0x200F, Meaning::blank},      // spaces of all widths, joiners, direction marks
    Signs{0x2010, 0x2015, Meaning::dash},       // hyphens, figure dash, en dash, em dash, bar
    Signs{0x2028, 0x2029, Meaning::separator},  // line and paragraph separator
    Signs{0x202A, 0x202F, Meaning::blank},      // embeddings, narrow no-break space
    Signs{0x2043, 0x2043, Meaning::dash},       // hyphen bullet
    Signs{0x205F, 0x2060, Meaning::blank},      // mathematical space, word joiner
    Signs{0x2066, 0x2069, Meaning::blank},      // isolates
    Signs{0x2212, 0x2212, Meaning::dash},       // minus
    Signs{0x2E17, 0x2E17, Meaning::dash},       // double oblique hyphen
    Signs{0x2E1A, 0x2E1A, Meaning::dash},       // hyphen with diaeresis
    Signs{0x2E3A, 0x2E3B, Meaning::dash},       // two-em and three-em dash
    Signs{0x2E40, 0x2E40, Meaning::dash},       // double hyphen
    Signs{0x2E5D, 0x2E5D, Meaning::dash},       // oblique hyphen
    Signs{0x3000, 0x3000, Meaning::blank},      // ideographic space
    Signs{0x3001, 0x3001, Meaning::separator},  // ideographic comma
    Signs{0x301C, 0x301C, Meaning::dash},       // wave dash
    Signs{0x3030, 0x3030, Meaning::dash},       // wavy dash
    Signs{0x30A0, 0x30A0, Meaning::dash},       // Katakana double hyphen
    Signs{0xFE31, 0xFE32, Meaning::dash},       // vertical dashes
    Signs{0xFE50, 0xFE51, Meaning::separator},  // small commas
    Signs{0xFE54, 0xFE54, Meaning::separator},  // small semicolon
    Signs{0xFE58, 0xFE58, Meaning::dash},       // small em dash
    Signs{0xFE63, 0xFE63, Meaning::dash},       // small hyphen
    Signs{0xFEFF, 0xFEFF, Meaning::blank},      // byte-order mark
    Signs{0xFF0C, 0xFF0C, Meaning::separator},  // full-width comma
    Signs{0xFF0D, 0xFF0D, Meaning::dash},       // full-width hyphen
    Signs{0xFF10, 0xFF19, Meaning::digit},      // full-width digits
    Signs{0xFF1B, 0xFF1B, Meaning::separator},  // full-width semicolon
    Signs{0xFF5E, 0xFF5E, Meaning::dash},  // full-width tilde, which some systems type for the wave
                                           // dash
    Signs{0xFF64, 0xFF64, Meaning::separator},  // half-width ideographic comma
    Signs{0x10EAD, 0x10EAD, Meaning::dash},     // Yezidi hyphen
};

constexpr Meaning meaningOf(char32_t character) {
  const auto* const next = std::ranges::upper_bound(kSigns, character, {}, &Signs::first);
  if (next == kSigns.begin()) return Meaning::other;
  const Signs& signs = *std::prev(next);
  return character <= signs.last ? signs.meaning : Meaning::other;
}

// The meanings of ASCII in a table, because most texts are ASCII and a pasted one may be long.
constexpr auto kAsciiMeanings = [] {
  std::array<Meaning, 128> meanings{};
  for (std::size_t i = 0; i < meanings.size(); ++i)
    meanings.at(i) = meaningOf(static_cast<char32_t>(i));
  return meanings;
}();

struct Character {
  char32_t scalar = kReplacement;
  std::size_t length = 1;  // in bytes
  Meaning meaning = Meaning::other;

  std::uint32_t digit() const { return scalar - (scalar <= U'9' ? U'0' : kFullWidthZero); }
};

// The meaning of a character that is not ASCII.
char32_t scalarOf(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  char32_t scalar = lead & (0x7FU >> bytes.size());
  for (const char byte : bytes.substr(1))
    scalar = scalar << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  return scalar;
}

// The first character of a text, which is not empty.
Character firstCharacter(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < kAsciiMeanings.size())
    return {.scalar = byte, .length = 1, .meaning = kAsciiMeanings[byte]};
  const std::size_t length = foundation::utf8CharacterLength(text);
  if (length == 0) return {};
  const char32_t scalar = scalarOf(text.substr(0, length));
  return {.scalar = scalar, .length = length, .meaning = meaningOf(scalar)};
}

bool startsWith(std::string_view text, Meaning meaning) {
  return !text.empty() && firstCharacter(text).meaning == meaning;
}

std::string_view withoutFirst(std::string_view text) {
  return text.substr(firstCharacter(text).length);
}

std::string_view withoutBlanks(std::string_view text) {
  while (startsWith(text, Meaning::blank)) text = withoutFirst(text);
  return text;
}

bool isControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

enum class State : std::uint8_t { start, first, dash, last, malformed };

State after(State state, Meaning meaning) {
  if (meaning == Meaning::digit) {
    if (state == State::start || state == State::first) return State::first;
    if (state == State::dash || state == State::last) return State::last;
  }
  return meaning == Meaning::dash && state == State::first ? State::dash : State::malformed;
}

// Whether the blanks before `text` belong to the dash of a range, and do not separate two pieces.
bool blanksBelongToRange(State state, std::string_view text) {
  if (state == State::dash) return startsWith(text, Meaning::digit);
  return state == State::first && startsWith(text, Meaning::dash) &&
         startsWith(withoutBlanks(withoutFirst(text)), Meaning::digit);
}

void append(std::uint32_t& number, std::uint32_t digit) {
  number = std::min(number * 10 + digit, kHighestPort + 1);
}

}  // namespace

std::string PortsPiece::shown() const {
  std::string result;
  std::string_view rest = text;
  for (std::size_t count = 0; !rest.empty(); ++count) {
    if (count == kShownCharacters) return result + "…";
    const Character character = firstCharacter(rest);
    rest.remove_prefix(character.length);
    if (character.meaning == Meaning::blank) {
      result += ' ';
    } else {
      foundation::appendUtf8(result, isControl(character.scalar) ? kReplacement : character.scalar);
    }
  }
  return result;
}

std::optional<PortsPiece> PortsText::next() {
  while (startsWith(rest_, Meaning::blank) || startsWith(rest_, Meaning::separator))
    rest_ = withoutFirst(rest_);
  if (rest_.empty()) return std::nullopt;

  PortsPiece piece;
  const std::string_view start = rest_;
  State state = State::start;
  while (!rest_.empty()) {
    const Character character = firstCharacter(rest_);
    if (character.meaning == Meaning::separator) break;
    if (character.meaning == Meaning::blank) {
      const std::string_view next = withoutBlanks(rest_);
      if (!blanksBelongToRange(state, next)) break;
      rest_ = next;
      continue;
    }
    state = after(state, character.meaning);
    if (state == State::first) append(piece.first, character.digit());
    if (state == State::last) append(piece.last, character.digit());
    rest_.remove_prefix(character.length);
  }
  piece.text = start.substr(0, start.size() - rest_.size());
  if (state == State::first) {
    piece.form = PortsPiece::Form::port;
    piece.last = piece.first;
  } else if (state == State::last) {
    piece.form = PortsPiece::Form::range;
  }
  return piece;
}

}  // namespace QEVModels
