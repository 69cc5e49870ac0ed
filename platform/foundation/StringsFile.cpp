#include "foundation/StringsFile.hpp"

#include "foundation/Files.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace foundation {

namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isBare(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("_$:./-").find(c) != std::string_view::npos;
}

std::optional<unsigned> digit(char c, unsigned base) {
  const char letter = static_cast<char>(c | 0x20);
  const unsigned value = c >= '0' && c <= '9'             ? static_cast<unsigned>(c - '0')
                         : letter >= 'a' && letter <= 'f' ? static_cast<unsigned>(letter - 'a' + 10)
                                                          : base;
  return value < base ? std::optional(value) : std::nullopt;
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
  char next(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

  bool fail(const std::string& what) { return failAt(what, at_); }
  bool failAt(const std::string& what, std::size_t at) {
    const auto line = 1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    error_ = Error{"line " + std::to_string(line) + " of the strings file goes wrong: " + what};
    return false;
  }

  // Past blanks and comments; says whether those are well formed.
  bool skipToNext() {
    while (!isAtEnd()) {
      if (isBlank(next())) {
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
        if (digit(letter, 8)) {
          --at_;
          appendUtf8(contents, number(8, 3));
        } else {
          contents += letter;
        }
    }
  }

  // One unit of UTF-16, or two that belong together.
  char32_t unicode() {
    const char32_t high = number(16, 4);
    const bool isPair = high >= 0xD800 && high <= 0xDBFF && next() == '\\' && (next(1) | 0x20) == 'u';
    if (!isPair) return high;
    const std::size_t before = std::exchange(at_, at_ + 2);
    const char32_t low = number(16, 4);
    if (low >= 0xDC00 && low <= 0xDFFF) return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
    at_ = before;
    return high;
  }

  char32_t number(unsigned base, int digits) {
    char32_t number = 0;
    for (; digits > 0 && digit(next(), base); --digits) number = number * base + *digit(text_[at_++], base);
    return number;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::optional<Error> error_;
};

bool looksLikeUtf16(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) return true;
  // Either byte of the first character of a strings file is a zero, and in UTF-8 neither.
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
  if (!isValidUtf8(bytes)) return Error{"the strings file is neither UTF-8 nor UTF-16; save it anew"};
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
