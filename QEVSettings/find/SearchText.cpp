// SPDX-License-Identifier: MIT
#include "find/SearchText.hpp"

#include "foundation/Unicode.hpp"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace QEVSettings {

namespace {

// How well a word fits a text, which its worth is multiplied by.
enum Fit : int { kInside = 1, kBeginsWord = 2, kIsWord = 3, kIsAll = 4 };

bool isPartOfWord(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z');
}

int fitAt(std::string_view text, std::size_t at, std::size_t length) {
  if (length == text.size()) return kIsAll;
  if (at > 0 && isPartOfWord(text[at - 1])) return kInside;
  const std::size_t end = at + length;
  return end < text.size() && isPartOfWord(text[end]) ? kBeginsWord : kIsWord;
}

int bestFit(std::string_view text, std::string_view word) {
  int best = 0;
  for (std::size_t from = 0; best < kIsWord;) {
    const void* const found =
        ::memmem(text.data() + from, text.size() - from, word.data(), word.size());
    if (found == nullptr) break;
    const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    best = std::max(best, fitAt(text, at, word.size()));
    from = at + 1;
  }
  return best;
}

std::optional<std::uint32_t> number(std::string_view text) {
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

void SearchText::add(std::string_view text, int worth) {
  if (text.empty()) return;
  fields_.push_back({.text = foundation::searchForm(text), .worth = worth});
  all_.append(fields_.back().text).append(1, '\n');
}

void SearchText::add(std::string_view text, std::string_view english, int worth) {
  add(text, worth);
  if (english != text) add(english, worth);
}

void SearchText::addPorts(std::string_view ports, int worth) {
  add(ports, worth);
  while (!ports.empty()) {
    const std::size_t end = std::min(ports.find_first_of(",; "), ports.size());
    const std::string_view part = ports.substr(0, end);
    const std::size_t dash = part.find('-');
    if (dash != std::string_view::npos) {
      const auto first = number(part.substr(0, dash));
      const auto last = number(part.substr(dash + 1));
      if (first && last) ports_.push_back({.first = *first, .last = *last, .worth = worth});
    }
    ports.remove_prefix(std::min(end + 1, ports.size()));
  }
}

int SearchText::worthOf(std::string_view word) const {
  const bool isSomewhere = ::memmem(all_.data(), all_.size(), word.data(), word.size()) != nullptr;
  if (!isSomewhere && ports_.empty()) return 0;
  int worth = 0;
  for (const Field& field : fields_) {
    if (isSomewhere && kIsAll * field.worth > worth)
      worth = std::max(worth, bestFit(field.text, word) * field.worth);
  }
  const auto port = ports_.empty() ? std::nullopt : number(word);
  for (const Ports& range : ports_) {
    if (port && range.first <= *port && *port <= range.last)
      worth = std::max(worth, kIsWord * range.worth);
  }
  return worth;
}

bool SearchText::equals(std::string_view phrase) const {
  return std::ranges::any_of(fields_, [&](const Field& each) { return each.text == phrase; });
}

std::string SearchText::identity() const {
  std::string identity;
  for (const Field& field : fields_)
    identity.append(std::to_string(field.worth)).append(1, '\0').append(field.text).append(1, '\0');
  return identity;
}

}  // namespace QEVSettings
