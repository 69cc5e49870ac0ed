// SPDX-License-Identifier: MIT
#include "find/WordWorths.hpp"

#include <algorithm>
#include <utility>

namespace QEVSettings {

namespace {

bool isNumber(std::string_view word) {
  return std::ranges::all_of(word, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::vector<std::shared_ptr<const WordWorths::Worths>> WordWorths::of(
    const std::vector<std::string>& words, const std::vector<SearchText>& texts) {
  std::vector<Known> known;
  for (const std::string& word : words) {
    const auto same = std::ranges::find(last_, word, &Known::word);
    Known next{.word = word,
               .worths = same != last_.end() ? same->worths : std::make_shared<Worths>()};
    // A text without the beginning of the word does not have the word. A range of ports may have a
    // longer number and not the shorter one.
    const auto shorter = std::ranges::find_if(last_, [&](const Known& each) {
      return same == last_.end() && word.starts_with(each.word) && !isNumber(word);
    });
    for (std::size_t i = next.worths->size(); i < texts.size(); ++i) {
      const bool cannotFit =
          shorter != last_.end() && i < shorter->worths->size() && (*shorter->worths)[i] == 0;
      next.worths->push_back(cannotFit ? 0 : texts[i].worthOf(word));
    }
    known.push_back(std::move(next));
  }
  last_ = std::move(known);
  std::vector<std::shared_ptr<const Worths>> worths;
  worths.reserve(last_.size());
  for (const Known& each : last_) worths.push_back(each.worths);
  return worths;
}

}  // namespace QEVSettings
