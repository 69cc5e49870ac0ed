// SPDX-License-Identifier: MIT
#include "Utf8.hpp"

#include "foundation/Unicode.hpp"

namespace headless {

namespace {

constexpr foundation::Utf8Character kUndecodable{.codePoint = foundation::kReplacementCharacter,
                                                 .length = 1};

}  // namespace

std::vector<Character> characters(std::string_view text) {
  std::vector<Character> result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto first = foundation::firstCharacter(text).value_or(kUndecodable);
    result.push_back({text.substr(0, first.length), first.codePoint});
    text.remove_prefix(first.length);
  }
  return result;
}

}  // namespace headless
