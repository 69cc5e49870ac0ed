// SPDX-License-Identifier: MIT
#include "QEVCommonTools/PlainText.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace QEVCommonTools {

namespace {

// The characters that Unicode calls white space, as UTF-8.
constexpr std::array<std::string_view, 26> kWhiteSpace{
    " ",
    "\t",
    "\n",
    "\v",
    "\f",
    "\r",
    "\xC2\x85",
    "\xC2\xA0",
    "\xE1\x9A\x80",
    "\xE2\x80\x80",
    "\xE2\x80\x81",
    "\xE2\x80\x82",
    "\xE2\x80\x83",
    "\xE2\x80\x84",
    "\xE2\x80\x85",
    "\xE2\x80\x86",
    "\xE2\x80\x87",
    "\xE2\x80\x88",
    "\xE2\x80\x89",
    "\xE2\x80\x8A",
    "\xE2\x80\x8B",
    "\xE2\x80\xA8",
    "\xE2\x80\xA9",
    "\xE2\x80\xAF",
    "\xE2\x81\x9F",
    "\xE3\x80\x80",
};

// The placeholder at the beginning of a format: its length, 0 when there is none, and the number of
// its value, 0 for the next one.
struct Place {
  std::size_t length = 0;
  std::size_t number = 0;
};

Place placeAt(std::string_view format) {
  if (format.starts_with("%@")) return {.length = 2};
  if (!format.starts_with('%')) return {};
  std::size_t number = 0;
  const char* const end = format.data() + format.size();
  const char* const digitsEnd = std::from_chars(format.data() + 1, end, number).ptr;
  if (number == 0 || !std::string_view(digitsEnd, end).starts_with("$@")) return {};
  return {.length = static_cast<std::size_t>(digitsEnd - format.data()) + 2, .number = number};
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto begins = [&](std::string_view space) { return text.starts_with(space); };
  const auto ends = [&](std::string_view space) { return text.ends_with(space); };
  for (auto found = std::ranges::find_if(kWhiteSpace, begins); found != kWhiteSpace.end();
       found = std::ranges::find_if(kWhiteSpace, begins)) {
    text.remove_prefix(found->size());
  }
  for (auto found = std::ranges::find_if(kWhiteSpace, ends); found != kWhiteSpace.end();
       found = std::ranges::find_if(kWhiteSpace, ends)) {
    text.remove_suffix(found->size());
  }
  return text;
}

std::string formatted(std::string_view format, const std::vector<std::string_view>& values) {
  std::string text;
  std::size_t next = 0;
  while (!format.empty()) {
    if (const Place place = placeAt(format); place.length > 0) {
      const std::size_t index = place.number > 0 ? place.number - 1 : next++;
      if (index < values.size()) text += values[index];
      format.remove_prefix(place.length);
    } else {
      text += format.front();
      format.remove_prefix(format.starts_with("%%") ? 2 : 1);
    }
  }
  return text;
}

}  // namespace QEVCommonTools
