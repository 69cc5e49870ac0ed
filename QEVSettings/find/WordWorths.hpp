// SPDX-License-Identifier: MIT
#pragma once

#include "find/SearchText.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// What words are worth in each text of an index. Remembers the words of the last search: the next
// one mostly has the same words, and one that is a character longer.
class WordWorths {
public:
  using Worths = std::vector<int>;

  // What each of the words is worth in the texts, by the number of the text. Texts are only added
  // from one call to the next.
  std::vector<std::shared_ptr<const Worths>> of(const std::vector<std::string>& words,
                                                const std::vector<SearchText>& texts);

private:
  struct Known {
    std::string word;
    std::shared_ptr<Worths> worths;
  };

  std::vector<Known> last_;
};

}  // namespace QEVSettings
