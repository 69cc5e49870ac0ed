// SPDX-License-Identifier: MIT
#include "QEVSettings/RecordingPreferences.hpp"

#include <string>

namespace QEVSettings {

RecordingPreferences::RecordingPreferences(PreferencesStore& store)
    : store_(store), recorder_(std::make_shared<std::shared_ptr<const Recorder>>()) {}

Subscription RecordingPreferences::record(Recorder recorder) {
  const auto added = std::make_shared<const Recorder>(std::move(recorder));
  *recorder_ = added;
  return Subscription([slot = recorder_, added] {
    if (*slot == added) slot->reset();
  });
}

void RecordingPreferences::setObject(PreferenceValue value, std::string_view key) {
  recordAround(key, [&] { store_.setObject(std::move(value), key); });
}

void RecordingPreferences::removeObject(std::string_view key) {
  recordAround(key, [&] { store_.removeObject(key); });
}

// The observers of the write run within it, and may write themselves. Their changes are reported
// first, so the value after the write is read when they are done.
void RecordingPreferences::recordAround(std::string_view key, const std::function<void()>& write) {
  if (!*recorder_) return write();
  SettingChange change{.key = std::string(key),
                       .before = store_.personLayer().objectForKey(key),
                       .after = std::nullopt};
  write();
  change.after = store_.personLayer().objectForKey(change.key);
  const auto recorder = *recorder_;
  if (recorder && change.before != change.after) (*recorder)(change);
}

}  // namespace QEVSettings
