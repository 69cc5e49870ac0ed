// SPDX-License-Identifier: MIT
#include "foundation/StringsFile.hpp"

#include "foundation/Ascii.hpp"
#include "foundation/Files.hpp"
#include "foundation/Unicode.hpp"

#include <unicode/utf16.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace foundation {

namespace {

bool isSpace(char c) { return isBlank(c) || c == '\v' || c == '\f'; }

// Whether a string without quotes may hold the character.
bool isBare(char c) {
  return isLetter(c) || isDigit(c) || std::string_view("_$:./-").find(c) != std::string_view::npos;
}

std::optional<unsigned> digitOfBase(unsigned base, char c) {
  const auto value = hexadecimalDigit(c);
  return value && *value < base ? value : std::nullopt;
}

class Parser {
public:
  explicit Parser(std::string_view text) : text_(text) {}

  Result<StringsTable> table() {
    StringsTable table;
    while (skipToNext() && !isAtEnd()) {
      auto key = string("a key");
      if (!key || !skipToNext()) break;
      std::optional<std::string> value = key;
      if (next() == '=') {
        ++at_;
        if (!skipToNext()) break;
        value = string("a value");
        if (!value || !skipToNext()) break;
      }
      if (next() != ';') {
        fail("a semicolon was expected");
        break;
      }
      ++at_;
      table.insert_or_assign(*std::move(key), *std::move(value));
    }
    if (error_) return *std::move(error_);
    return table;
  }

private:
  bool isAtEnd() const { return at_ >= text_.size(); }
  char next(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  bool fail(const std::string& what) { return failAt(what, at_); }
  bool failAt(const std::string& what, std::size_t at) {
    const auto line =
        1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    error_ = Error{"line " + std::to_string(line) + " of the strings file goes wrong: " + what};
    return false;
  }

  // Skips white space and comments. Returns false when a comment has no end.
  bool skipToNext() {
    while (!isAtEnd()) {
      if (isSpace(next())) {
        ++at_;
      } else if (next() == '/' && next(1) == '/') {
        at_ = std::min(text_.find_first_of("\n\r", at_), text_.size());
      } else if (next() == '/' && next(1) == '*') {
        const std::size_t end = text_.find("*/", at_ + 2);
        if (end == std::string_view::npos) return fail("a comment has no end");
        at_ = end + 2;
      } else {
        break;
      }
    }
    return true;
  }

  std::optional<std::string> string(const char* what) {
    if (next() == '"' || next() == '\'') return quoted();
    const std::size_t begin = at_;
    while (!isAtEnd() && isBare(next()) && !startsComment()) ++at_;
    if (at_ == begin) {
      fail(std::string(what) + " was expected");
      return std::nullopt;
    }
    return std::string(text_.substr(begin, at_ - begin));
  }

  bool startsComment() const { return next() == '/' && (next(1) == '/' || next(1) == '*'); }

  std::optional<std::string> quoted() {
    const std::size_t begin = at_;
    const char quote = text_[at_++];
    std::string contents;
    while (next() != quote || isAtEnd()) {
      if (isAtEnd()) {
        failAt("a quotation has no end", begin);
        return std::nullopt;
      }
      if (next() == '\\') {
        ++at_;
        appendEscape(contents);
      } else {
        contents += text_[at_++];
      }
    }
    ++at_;
    return contents;
  }

  void appendEscape(std::string& contents) {
    if (isAtEnd()) return;
    const char letter = text_[at_++];
    switch (letter) {
      case 'a': contents += '\a'; return;
      case 'b': contents += '\b'; return;
      case 'f': contents += '\f'; return;
      case 'n': contents += '\n'; return;
      case 'r': contents += '\r'; return;
      case 't': contents += '\t'; return;
      case 'v': contents += '\v'; return;
      case 'U':
      case 'u': appendUtf8(contents, unicode()); return;
      default:
        if (digitOfBase(8, letter)) {
          --at_;
          appendUtf8(contents, number(8, 3));
        } else {
          contents += letter;
        }
    }
  }

  // The digits of one \U escape, or of two that are a surrogate pair.
  char32_t unicode() {
    const char32_t unit = number(16, 4);
    const bool mayBePair = U16_IS_LEAD(unit) && next() == '\\' && (next(1) | 0x20) == 'u';
    if (!mayBePair) return unit;
    const std::size_t before = std::exchange(at_, at_ + 2);
    const char32_t trail = number(16, 4);
    if (U16_IS_TRAIL(trail)) return U16_GET_SUPPLEMENTARY(unit, trail);
    at_ = before;
    return unit;
  }

  char32_t number(unsigned base, int digits) {
    char32_t number = 0;
    for (; digits > 0; --digits, ++at_) {
      const auto digit = digitOfBase(base, next());
      if (!digit) break;
      number = number * base + *digit;
    }
    return number;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::optional<Error> error_;
};

bool looksLikeUtf16(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) return true;
  // A strings file begins with an ASCII character. One byte of it is zero in UTF-16, and none in
  // UTF-8.
  return bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0');
}

}  // namespace

Result<StringsTable> parseStringsText(std::string_view utf8) { return Parser(utf8).table(); }

Result<StringsTable> parseStringsFile(std::string_view bytes) {
  if (looksLikeUtf16(bytes)) {
    const auto text = utf8FromUtf16(bytes);
    if (!text) return Error{"the strings file is damaged UTF-16; save it anew"};
    return parseStringsText(*text);
  }
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  if (!isValidUtf8(bytes))
    return Error{"the strings file is neither UTF-8 nor UTF-16; save it anew"};
  return parseStringsText(bytes);
}

Result<StringsTable> readStringsFile(const std::filesystem::path& path) {
  const auto bytes = readFile(path);
  if (!bytes) return bytes.error();
  auto table = parseStringsFile(*bytes);
  if (!table) return Error{path.string() + ": " + table.error().message};
  return table;
}

}  // namespace foundation
