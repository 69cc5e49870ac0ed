// SPDX-License-Identifier: MIT
#include "find/StoredValues.hpp"

#include "QEVSettings/SettingDefault.hpp"
#include "foundation/JSON.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace QEVSettings {

using foundation::JSON;

namespace {

constexpr int kWorth = SettingsIndex::Contents::kValue;

void addProtocols(SearchText& text, const PreferenceValue::Bytes& bytes) {
  const auto list = JSON::parse({bytes.begin(), bytes.end()});
  if (!list || !list->isArray()) return;
  for (const JSON& record : list->elements()) {
    if (const auto name = record.member("protocolName")) text.add(name->text(), kWorth);
    if (const auto ports = record.member("protocolPorts")) text.addPorts(ports->text(), kWorth);
  }
}

// The words of a value: texts, numbers, the family of a font, protocols with their ports.
SearchText textOf(const PreferenceValue& value) {
  SearchText text;
  if (const std::string* string = value.asString()) {
    text.add(*string, kWorth);
  } else if (const auto number = value.asInteger()) {
    text.add(std::to_string(*number), kWorth);
  } else if (const auto* bytes = value.asData()) {
    addProtocols(text, *bytes);
  } else if (const auto* entries = value.asDictionary()) {
    for (const auto& [name, entry] : *entries) {
      if (const std::string* each = entry.asString()) text.add(*each, kWorth);
    }
  }
  return text;
}

}  // namespace

StoredValues::StoredValues(const SettingsIndex::Contents& contents, const SearchQuery& query,
                           const PreferencesStore& store) {
  for (const auto& [key, value] : store.dictionaryRepresentation()) {
    const auto entry = contents.entryOf(key);
    if (!entry) continue;
    if (!query.words.empty()) {
      const SearchText text = textOf(value);
      std::vector<int> worths;
      worths.reserve(query.words.size());
      for (const std::string& word : query.words) worths.push_back(text.worthOf(word));
      if (std::ranges::any_of(worths, [](int worth) { return worth > 0; }))
        worths_.emplace(*entry, std::move(worths));
    }
    if (!query.isForChanged) continue;
    const auto setting = contents.describe(contents.entries()[*entry]);
    if (setting && differsFromDefault(*setting, value)) changed_.insert(*entry);
  }
}

int StoredValues::worthOf(std::size_t entry, std::size_t word) const {
  if (worths_.empty()) return 0;
  const auto found = worths_.find(entry);
  return found != worths_.end() ? found->second[word] : 0;
}

}  // namespace QEVSettings
