// SPDX-License-Identifier: MIT
#include "foundation/Ascii.hpp"
#include "sparkle/Appcast.hpp"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace sparkle {

namespace {

using foundation::isBlank;

// Builds text from words and lines. Several blanks become one, and several empty lines become one.
class Lines {
public:
  void add(std::string_view characters) {
    for (const char c : characters) {
      if (isBlank(c)) {
        blankIsDue_ = true;
      } else {
        put(c);
      }
    }
  }

  // Separates what follows by at least this many line ends from what came before.
  void breakLine(int ends) {
    endsDue_ = std::max(endsDue_, ends);
    blankIsDue_ = false;
  }

  std::string take() { return std::move(text_); }

private:
  void put(char c) {
    if (!text_.empty()) {
      if (endsDue_ > 0) {
        text_.append(static_cast<std::size_t>(endsDue_), '\n');
      } else if (blankIsDue_) {
        text_ += ' ';
      }
    }
    endsDue_ = 0;
    blankIsDue_ = false;
    text_ += c;
  }

  std::string text_;
  bool blankIsDue_ = false;
  int endsDue_ = 0;
};

constexpr auto kEntities = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"&amp;", "&"},
    {"&lt;", "<"},
    {"&gt;", ">"},
    {"&quot;", "\""},
    {"&apos;", "'"},
    {"&#39;", "'"},
    {"&nbsp;", " "},
    {"&ndash;", "–"},
    {"&mdash;", "—"},
    {"&hellip;", "…"},
});

// "li" of "<li class=x>", "/p" of "</p >".
std::string nameOfTag(std::string_view tag) {
  std::string name;
  for (const char c : tag.substr(1)) {
    if (isBlank(c) || c == '>' || (c == '/' && !name.empty())) break;
    name += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return name;
}

void applyTag(const std::string& name, Lines& lines) {
  const std::string_view bare = name.starts_with('/') ? std::string_view(name).substr(1) : name;
  if (bare == "br" || bare == "div" || bare == "tr") lines.breakLine(1);
  if (bare == "p" || bare == "ul" || bare == "ol") lines.breakLine(2);
  if (bare.size() == 2 && bare[0] == 'h' && bare[1] >= '1' && bare[1] <= '6') lines.breakLine(2);
  if (bare == "li") lines.breakLine(1);
  if (name == "li") lines.add("• ");
}

// The length of a tag or a comment at the front of the text; nothing when "<" is only a character.
std::optional<std::size_t> lengthOfTag(std::string_view text) {
  if (text.starts_with("<!--")) {
    const auto end = text.find("-->");
    return end == std::string_view::npos ? text.size() : end + 3;
  }
  const bool looksLikeTag =
      text.size() > 1 &&
      ((text[1] >= 'a' && text[1] <= 'z') || (text[1] >= 'A' && text[1] <= 'Z') || text[1] == '/');
  const auto end = looksLikeTag ? text.find('>') : std::string_view::npos;
  return end == std::string_view::npos ? std::nullopt : std::optional(end + 1);
}

// Whether the text is markup. The line ends of other text are kept.
bool isMarkup(std::string_view notes) {
  for (auto at = notes.find('<'); at != std::string_view::npos; at = notes.find('<', at + 1)) {
    if (lengthOfTag(notes.substr(at))) return true;
  }
  return false;
}

}  // namespace

std::string plainText(std::string_view notes) {
  if (!isMarkup(notes)) return std::string(notes);
  Lines lines;
  while (!notes.empty()) {
    std::size_t taken = 1;
    std::string_view shown = notes.substr(0, 1);
    if (notes.front() == '<') {
      if (const auto length = lengthOfTag(notes)) {
        applyTag(nameOfTag(notes.substr(0, *length)), lines);
        taken = *length;
        shown = {};
      }
    } else if (notes.front() == '&') {
      for (const auto& [entity, character] : kEntities) {
        if (notes.starts_with(entity)) {
          taken = entity.size();
          shown = character;
        }
      }
    }
    lines.add(shown);
    notes.remove_prefix(taken);
  }
  return lines.take();
}

}  // namespace sparkle
