// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"
#include "foundation/PreferenceHistory.hpp"
#include "foundation/Result.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// What the window of recent changes shows: the history of a store, with the titles of the settings.
// Announces each change of the store, including those of other processes. Main thread.
class RecentChangesModel final : public foundation::ObservableObject {
public:
  // Writes a setting, or removes the user's value, as its page does. The error is in the user's
  // language.
  using Write = std::function<foundation::Outcome(
      std::string_view key, std::optional<QEVSettings::PreferenceValue> value)>;

  // `preferences` is the store with its layers. Both outlive the model.
  RecentChangesModel(const foundation::UserDefaults& store,
                     QEVSettings::PreferencesStore& preferences, Write write);

  // The newest change first. Valid until the next call after a change of the store.
  const std::vector<foundation::RememberedChange>& changes();

  // What went wrong when the history was read or a value put back, in the user's language; empty
  // when nothing did.
  const std::string& problem();

  // Why there is nothing to show, in the user's language.
  std::string emptyText() const;

  // Why the value before the change cannot be put back, in the user's language; empty when it can.
  std::string obstacle(const foundation::RememberedChange& change) const;

  // Writes the value that the key had before the change with this number.
  void putBack(std::int64_t number);

private:
  void read();

  const foundation::UserDefaults& store_;
  QEVSettings::PreferencesStore& preferences_;
  Write write_;
  bool isCurrent_ = false;
  std::vector<foundation::RememberedChange> changes_;
  std::string problem_;
  std::string writeProblem_;  // of the last value that was put back
  QEVSettings::Subscription changed_;
};

// The title of a setting in the user's language, with its analyzer; the key of an unknown one.
std::string settingTitle(std::string_view key);

// What a setting held before or after a change, as its page says it, cut to a number of characters.
std::string settingValueText(std::string_view key, const foundation::RememberedValue& value,
                             std::size_t characters);

// A time of this machine's zone, as in "2026-11-25 21:41:59".
std::string localTimeText(QEVSettings::PreferenceValue::Date time);

}  // namespace zorvantine
