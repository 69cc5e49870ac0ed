// SPDX-License-Identifier: MIT
#include "find/SearchQuery.hpp"

#include "QEVSettings/SettingsIndex.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>

namespace QEVSettings {

namespace {

constexpr std::size_t kMostWords = 16;
constexpr std::size_t kLongestQuery = 512;
constexpr std::string_view kBlanks = " \t\n\r";

}  // namespace

SearchQuery::SearchQuery(std::string_view text) {
  const std::string form = foundation::searchForm(text.substr(0, kLongestQuery));
  for (std::size_t begin = form.find_first_not_of(kBlanks); begin != std::string::npos;) {
    const std::size_t end = std::min(form.find_first_of(kBlanks, begin), form.size());
    const std::string word = form.substr(begin, end - begin);
    if (word == kChangedSettings) {
      isForChanged = true;
    } else if (words.size() < kMostWords) {
      phrase += (phrase.empty() ? "" : " ") + word;
      words.push_back(word);
    }
    begin = form.find_first_not_of(kBlanks, end);
  }
}

}  // namespace QEVSettings
