// SPDX-License-Identifier: MIT
#include "changes/ActionStep.hpp"

#include "changes/isOfAppearance.hpp"

#include <algorithm>
#include <numeric>
#include <optional>

namespace QEVSettings {

namespace {

std::size_t sizeOf(const PreferenceValue& value) {
  std::size_t size = sizeof(PreferenceValue);
  if (const auto* text = value.asString()) size += text->size();
  if (const auto* bytes = value.asData()) size += bytes->size();
  if (const auto* array = value.asArray()) {
    for (const PreferenceValue& each : *array) size += sizeOf(each);
  }
  if (const auto* dictionary = value.asDictionary()) {
    for (const auto& [key, each] : *dictionary) size += key.size() + sizeOf(each);
  }
  return size;
}

std::size_t sizeOf(const std::optional<PreferenceValue>& value) {
  return value ? sizeOf(*value) : 0;
}

}  // namespace

bool ActionStep::add(const SettingChange& change) {
  const auto known = std::ranges::find(changes, change.key, &SettingChange::key);
  if (known == changes.end()) {
    changes.push_back(change);
    return true;
  }
  if (known->after != change.before) return false;
  known->after = change.after;
  if (known->before == known->after) changes.erase(known);
  return true;
}

std::size_t ActionStep::size() const {
  return std::accumulate(changes.begin(), changes.end(), sizeof(ActionStep) + name.size(),
                         [](std::size_t sum, const SettingChange& each) {
                           return sum + sizeof(SettingChange) + each.key.size() +
                                  sizeOf(each.before) + sizeOf(each.after);
                         });
}

std::vector<std::vector<SettingChange>> bySetting(const std::vector<SettingChange>& changes) {
  std::vector<std::vector<SettingChange>> settings;
  std::optional<std::size_t> appearance;
  for (const SettingChange& each : changes) {
    if (!isOfAppearance(each.key)) {
      settings.push_back({each});
    } else if (appearance) {
      settings[*appearance].push_back(each);
    } else {
      appearance = settings.size();
      settings.push_back({each});
    }
  }
  return settings;
}

}  // namespace QEVSettings
