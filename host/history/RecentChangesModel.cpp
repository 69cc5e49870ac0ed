// SPDX-License-Identifier: MIT
#include "history/RecentChangesModel.hpp"

#include "QEVSettings/LayeredPreferences.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "QEVSettings/isSetting.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/settingName.hpp"
#include "QEVSettings/settingText.hpp"
#include "catalogue/HostSettings.hpp"
#include "commandline/TextForm.hpp"
#include "foundation/Bundle.hpp"
#include "history/HistoryText.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <utility>

namespace zorvantine {

using foundation::RememberedChange;
using QEVSettings::PreferenceValue;

namespace {

std::string localized(std::string_view key) {
  return foundation::Bundle::mainBundle().localizedString(key);
}

// The value before the change. It may be older than the migration of the store.
std::optional<PreferenceValue> inCurrentForm(const RememberedChange& change) {
  if (!change.before.value) return std::nullopt;
  const auto current = QEVSettings::inCurrentSchema({{change.key, *change.before.value}});
  return current && current->values.contains(change.key) ? current->values.at(change.key)
                                                         : *change.before.value;
}

}  // namespace

RecentChangesModel::RecentChangesModel(const foundation::UserDefaults& store,
                                       QEVSettings::PreferencesStore& preferences, Write write)
    : store_(store),
      preferences_(preferences),
      write_(std::move(write)),
      changed_(preferences.observeAll([this](std::string_view) {
        objectWillChange().announce();
        isCurrent_ = false;
      })) {}

const std::vector<RememberedChange>& RecentChangesModel::changes() {
  read();
  return changes_;
}

const std::string& RecentChangesModel::problem() {
  read();
  return problem_;
}

void RecentChangesModel::read() {
  if (std::exchange(isCurrent_, true)) return;
  auto history = store_.history();
  problem_ = history ? writeProblem_ : history.error().message;
  changes_ = history ? *std::move(history) : std::vector<RememberedChange>();
  std::erase_if(changes_,
                [](const RememberedChange& change) { return !QEVSettings::isSetting(change.key); });
}

std::string RecentChangesModel::emptyText() const {
  const auto* value = preferences_.find(QEVSettings::kKeepsHistory.name);
  const auto isKept = value != nullptr ? value->convertedToBoolean() : std::nullopt;
  return isKept.value_or(QEVSettings::kKeepsHistory.defaultValue)
             ? localized("No changes are remembered yet.")
             : localized("The history of changes is turned off.");
}

std::string RecentChangesModel::obstacle(const RememberedChange& change) const {
  if (preferences_.isLocked(change.key)) return QEVSettings::lockedMessage(change.key);
  if (!change.before.isKnown()) return localized("The former value was not kept.");
  const auto* value = preferences_.personLayer().find(change.key);
  const bool isSame = value != nullptr ? change.before.value == *value : !change.before.value;
  return isSame ? localized("The setting has this value now.") : "";
}

void RecentChangesModel::putBack(std::int64_t number) {
  const auto found = std::ranges::find(changes(), number, &RememberedChange::number);
  if (found == changes_.end() || !obstacle(*found).empty()) return;
  // A copy, because the write makes another history.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const RememberedChange change = *found;
  const auto outcome = write_(change.key, inCurrentForm(change));
  objectWillChange().announce();
  writeProblem_ = outcome ? "" : outcome.error().message;
  isCurrent_ = false;
}

std::string settingTitle(std::string_view key) {
  const auto* known = hostCatalogue().find(key);
  if (known == nullptr) return std::string(key);
  const std::string title = QEVSettings::settingName(*known);
  return known->place.analyzer.empty() ? title : known->place.analyzer + " › " + title;
}

std::string settingValueText(std::string_view key, const foundation::RememberedValue& value,
                             std::size_t characters) {
  const auto* known = value.value ? hostCatalogue().find(key) : nullptr;
  const bool hasItsType = known != nullptr && known->type == value.value->type();
  const std::string text = hasItsType ? QEVSettings::valueText(*known, *value.value) : "";
  if (text.empty()) return historyText(value, characters);
  return QEVSettings::firstCharacters(onOneLine(text), characters);
}

std::string localTimeText(PreferenceValue::Date time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
  const std::time_t number = seconds.time_since_epoch().count();
  std::tm parts{};
  std::array<char, 64> text{};
  if (::localtime_r(&number, &parts) == nullptr) return {};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts)};
}

}  // namespace zorvantine
