// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsReset.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/SettingDefault.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "changes/ActionStep.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace QEVSettings {

using QEVCommonTools::formatted;
using QEVModels::QEVPlugInsController;

namespace {

constexpr std::string_view kAnalyzerTab = "analyze";

// The title of the analyzer that the Analyzer tab shows; empty when there is none.
std::string selectedAnalyzer(const PreferencesStore& store) {
  const auto plugIns = QEVPlugInsController::sharedManager().snapshot();
  if (plugIns->empty()) return {};
  const auto last = static_cast<std::int64_t>(plugIns->size()) - 1;
  const auto index =
      std::clamp<std::int64_t>(store.integerForKey(kAnalyzerSelectedIndex.name), 0, last);
  return (*plugIns)[static_cast<std::size_t>(index)].plugInTitle;
}

void tell(const std::vector<SettingWriter::Refusal>& refusals, const ActionHistory& history) {
  std::string message;
  for (const SettingWriter::Refusal& each : refusals) {
    if (!message.empty()) message += '\n';
    message +=
        formatted(localized("“%@” was not reset: %@"), {history.nameOf(each.key), each.message});
  }
  if (!message.empty()) history.notice()->show(std::move(message));
}

}  // namespace

SettingsReset::SettingsReset(std::shared_ptr<ActionHistory> history,
                             std::shared_ptr<SettingsCatalogue> catalogue)
    : history_(std::move(history)), catalogue_(std::move(catalogue)) {}

void SettingsReset::askToResetPage() const {
  const std::string analyzer = shownTab_ == kAnalyzerTab ? selectedAnalyzer(store()) : "";
  ask(keys([&](const PreferenceDescriptor& each) {
        return each.place.tab == shownTab_ && each.place.analyzer == analyzer;
      }),
      "Reset this page to its defaults? Settings that change: %@. One undo brings them back.",
      "The settings of this page have their defaults already.", "Reset This Page");
}

void SettingsReset::askToResetAll() const {
  ask(keys([](const PreferenceDescriptor&) { return true; }),
      "Reset all settings to their defaults? Settings that change: %@. One undo brings them back.",
      "All settings have their defaults already.", "Reset All Settings");
}

PreferencesStore& SettingsReset::store() const { return history_->writer().store(); }

std::vector<std::string> SettingsReset::keys(
    const std::function<bool(const PreferenceDescriptor&)>& fits) const {
  std::vector<std::string> keys;
  for (const PreferenceDescriptor* each : catalogue_->current().all()) {
    const bool isShown = !each->place.tab.empty() && each->isLockable;
    if (!isShown || store().personLayer().find(each->key) == nullptr) continue;
    if (fits(*each) && !store().isLocked(each->key)) keys.push_back(each->key);
  }
  return keys;
}

// A value that is equal to the default is removed with the others, but it is no change.
std::size_t SettingsReset::countChanged(const std::vector<std::string>& keys) const {
  std::vector<SettingChange> changes;
  for (const std::string& key : keys) {
    const PreferenceDescriptor* const descriptor = catalogue_->current().find(key);
    if (descriptor && isChangedByUser(*descriptor, store())) changes.push_back({.key = key});
  }
  return bySetting(changes).size();
}

void SettingsReset::ask(std::vector<std::string> keys, const char* question,
                        const char* nothingToDo, const char* name) const {
  ActionNotice& notice = *history_->notice();
  const std::size_t count = countChanged(keys);
  if (count == 0) return notice.show(localized(nothingToDo));
  notice.ask(formatted(localized(question), {std::to_string(count)}), localized("Reset"),
             // The question belongs to the history.
             [owner = std::weak_ptr(history_), keys = std::move(keys), name = localized(name)] {
               const auto history = owner.lock();
               if (!history) return;
               std::vector<SettingWriter::Refusal> refusals;
               history->perform(name, [&] { refusals = history->writer().resetAll(keys); });
               tell(refusals, *history);
             });
}

}  // namespace QEVSettings
