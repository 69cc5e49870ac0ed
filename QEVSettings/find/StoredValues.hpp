// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "find/IndexContents.hpp"
#include "find/SearchQuery.hpp"

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace QEVSettings {

// What a search finds in the values that the person has stored.
class StoredValues {
public:
  StoredValues(const SettingsIndex::Contents& contents, const SearchQuery& query,
               const PreferencesStore& store);

  // What the word with this number is worth in the stored value of an entry.
  int worthOf(std::size_t entry, std::size_t word) const;
  // Whether the entry's value differs from the default. Known only in a search for changed
  // settings.
  bool isChanged(std::size_t entry) const { return changed_.contains(entry); }

private:
  std::unordered_map<std::size_t, std::vector<int>> worths_;
  std::unordered_set<std::size_t> changed_;
};

}  // namespace QEVSettings
