// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/UserDefaults.hpp"
#include "store/PreferencesFile.hpp"
#include "system/ProcessLimits.hpp"

#include <utility>

// The history of the store. PreferencesHistory.hpp describes how it is kept.

namespace foundation {

bool UserDefaults::keepsHistory() const {
  if (historyRules_.isKept) return historyRules_.isKept();
  const auto found = image_.find(QEVSettings::kKeepsHistory.name);
  const auto chosen =
      found != image_.end() ? found->second.value.convertedToBoolean() : std::nullopt;
  return chosen.value_or(QEVSettings::kKeepsHistory.defaultValue);
}

Result<std::vector<RememberedChange>> UserDefaults::history(std::string_view key) const {
  std::vector<RememberedChange> changes;
  const auto take = [&](PreferencesFile& file) {
    return withinLimits([&]() -> Outcome {
      auto read = file.history(key);
      if (!read) return read.error();
      changes = *std::move(read);
      return done();
    });
  };
  Outcome outcome = done();
  if (!readOnlyPath_.empty()) {
    PreferencesFile file(readOnlyPath_);
    outcome = withinLimits([&] { return file.openSnapshot(); });
    if (outcome) outcome = take(file);
  } else {
    catchUp();
    if (file_) outcome = take(*file_);
    if (!outcome && file_ && file_->isDamaged()) {
      self_.closeCutFile();
      self_.save();
      if (file_) outcome = take(*file_);
    }
  }
  if (!outcome) return outcome.error();
  for (RememberedChange& change : changes) change.isInForce = isInForce(change);
  return changes;
}

// The row of the key has the number of its last change, unless the same value was written again.
bool UserDefaults::isInForce(const RememberedChange& change) const {
  const auto found = image_.find(change.key);
  if (found == image_.end() && change.after.kind == RememberedValue::Kind::none) return true;
  if (numberOf(change.key) == change.number) return true;
  return found != image_.end() && change.after.value == found->second.value;
}

}  // namespace foundation
