// SPDX-License-Identifier: MIT
#pragma once

#include "find/SearchQuery.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QEVSettings {

// The texts by which one thing is found, each with what a word in it is worth. Many rows of a
// window share one SearchText.
class SearchText {
public:
  // Adds a text, and the English one where it is another.
  void add(std::string_view text, int worth);
  void add(std::string_view text, std::string_view english, int worth);
  // Adds ports and ranges of ports, such as "80, 8000-8010".
  void addPorts(std::string_view ports, int worth);

  // What the word is worth here; 0 where it does not occur.
  int worthOf(std::string_view word) const;
  // Whether one of the texts is all of this.
  bool equals(std::string_view phrase) const;

  // Equal for texts that find the same.
  std::string identity() const;

private:
  struct Field {
    std::string text;
    int worth;
  };
  struct Ports {
    std::uint32_t first;
    std::uint32_t last;
    int worth;
  };

  std::vector<Field> fields_;
  // The texts of all fields: most words are in none of them.
  std::string all_;
  std::vector<Ports> ports_;
};

}  // namespace QEVSettings
