// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// What the user searches for.
struct SearchQuery {
  // The words in the form of foundation::searchForm, without those that have a meaning of their
  // own.
  std::vector<std::string> words;
  // All words with one space between them.
  std::string phrase;
  bool isForChanged = false;

  explicit SearchQuery(std::string_view text);
  bool isEmpty() const { return words.empty() && !isForChanged; }
};

}  // namespace QEVSettings
