// SPDX-License-Identifier: MIT
#include "text/property_lists/PropertyListFault.hpp"

#include "foundation/PropertyList.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>
#include <string>

namespace foundation {

namespace {

// Shortened, because a key can be as long as the list.
constexpr std::size_t kLongestKeyBytes = 100;

std::string shortened(std::string_view key) {
  if (key.size() <= kLongestKeyBytes) return std::string(key);
  std::string_view rest = key;
  while (key.size() - rest.size() < kLongestKeyBytes) {
    rest.remove_prefix(std::max<std::size_t>(utf8CharacterLength(rest), 1));
  }
  return std::string(key.substr(0, key.size() - rest.size())) + "…";
}

// Only the first and the last key are named, because a path can be long.
std::string nameOf(const std::vector<std::string_view>& keys) {
  const auto isNamed = [](std::string_view key) { return !key.empty(); };
  const auto first = std::find_if(keys.begin(), keys.end(), isNamed);
  if (first == keys.end()) return {};
  const auto last = std::find_if(keys.rbegin(), keys.rend(), isNamed).base() - 1;
  const std::string outer = "“" + shortened(*first) + "”";
  return first == last ? outer : outer + " with “" + shortened(*last) + "” in it";
}

}  // namespace

Error propertyListFault(std::string_view place, const std::vector<std::string_view>& keys,
                        std::string_view problem) {
  std::string message = "the property list is wrong in " + std::string(place);
  if (const std::string name = nameOf(keys); !name.empty()) message += ", under the key " + name;
  return {message + ": " + std::string(problem) + "; correct it, or choose another list"};
}

Error noDictionaryFault() {
  return {"the property list is no dictionary of keys and values; choose another"};
}

std::string_view depthProblem() {
  static const std::string text =
      "values are nested deeper than " + std::to_string(kMaximumPropertyListDepth) + " levels";
  return text;
}

std::string_view countProblem() {
  static const std::string text =
      "the list unfolds to more than " + std::to_string(kMaximumPropertyListValues) + " values";
  return text;
}

}  // namespace foundation
