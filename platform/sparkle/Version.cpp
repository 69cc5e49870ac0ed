// SPDX-License-Identifier: MIT
#include "sparkle/Version.hpp"

#include "foundation/Ascii.hpp"

#include <algorithm>
#include <cstddef>

namespace sparkle {

namespace {

using foundation::isDigit;
using foundation::isLetter;

// A run of digits without leading zeros, or a run of letters.
struct Component {
  std::string_view digits;
  std::string_view letters;
};

// Removes and returns the first component. Returns the number 0 when none is left.
Component nextComponent(std::string_view& rest) {
  const auto begin = std::ranges::find_if(rest, [](char c) { return isDigit(c) || isLetter(c); });
  rest.remove_prefix(static_cast<std::size_t>(begin - rest.begin()));
  if (rest.empty()) return {};

  const bool isNumber = isDigit(rest.front());
  const auto end = std::ranges::find_if_not(rest, isNumber ? isDigit : isLetter);
  const auto length = static_cast<std::size_t>(end - rest.begin());
  std::string_view run = rest.substr(0, length);
  rest.remove_prefix(length);
  if (!isNumber) return {.digits = {}, .letters = run};
  run.remove_prefix(std::min(run.find_first_not_of('0'), run.size()));
  return {.digits = run, .letters = {}};
}

std::weak_ordering compare(const Component& a, const Component& b) {
  if (a.letters.empty() != b.letters.empty()) {
    return a.letters.empty() ? std::weak_ordering::greater : std::weak_ordering::less;
  }
  if (a.digits.size() != b.digits.size()) return a.digits.size() <=> b.digits.size();
  if (a.digits != b.digits) return a.digits <=> b.digits;
  return a.letters <=> b.letters;
}

}  // namespace

std::weak_ordering compareVersions(std::string_view a, std::string_view b) {
  while (!a.empty() || !b.empty()) {
    const auto order = compare(nextComponent(a), nextComponent(b));
    if (order != std::weak_ordering::equivalent) return order;
  }
  return std::weak_ordering::equivalent;
}

}  // namespace sparkle
