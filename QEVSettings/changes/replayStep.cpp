// SPDX-License-Identifier: MIT
#include "changes/replayStep.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"

#include <algorithm>
#include <optional>
#include <ranges>

namespace QEVSettings {

namespace {

using Values = std::optional<PreferenceValue> SettingChange::*;

bool isUnchanged(const std::vector<SettingChange>& setting, Values expected,
                 PreferencesStore& store) {
  return std::ranges::all_of(setting, [&](const SettingChange& each) {
    return store.personLayer().objectForKey(each.key) == each.*expected;
  });
}

bool isLocked(const std::vector<SettingChange>& setting, const PreferencesStore& store) {
  return std::ranges::any_of(setting,
                             [&](const SettingChange& each) { return store.isLocked(each.key); });
}

}  // namespace

ReplayedStep replayStep(const ActionStep& step, ReplayDirection direction, SettingWriter& writer) {
  const bool isBack = direction == ReplayDirection::back;
  const Values expected = isBack ? &SettingChange::after : &SettingChange::before;
  const Values wanted = isBack ? &SettingChange::before : &SettingChange::after;
  ReplayedStep replayed;
  std::vector<SettingWriter::Setting> writes;
  for (const auto& setting : bySetting(step.changes)) {
    const std::string& key = setting.front().key;
    if (!isUnchanged(setting, expected, writer.store())) {
      replayed.changedElsewhere.push_back(key);
    } else if (isLocked(setting, writer.store())) {
      replayed.refused.push_back({.key = key, .message = QEVCommonTools::managedText()});
    } else {
      for (const SettingChange& each : setting) {
        writes.push_back({.key = each.key, .value = each.*wanted});
        replayed.done.push_back(each);
      }
    }
  }
  if (isBack) std::ranges::reverse(writes);
  for (SettingWriter::Refusal& each : writer.writeAll(writes)) {
    std::erase_if(replayed.done,
                  [&](const SettingChange& change) { return change.key == each.key; });
    replayed.refused.push_back(std::move(each));
  }
  return replayed;
}

}  // namespace QEVSettings
