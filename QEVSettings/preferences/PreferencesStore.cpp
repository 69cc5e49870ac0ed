// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace QEVSettings {

std::optional<PreferenceValue> PreferencesStore::objectForKey(std::string_view key) const {
  const auto* value = find(key);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

Subscription PreferencesStore::observeStorage(std::function<void()>) { return {}; }

PreferenceOrigin PreferencesStore::origin(std::string_view key) const {
  return find(key) != nullptr ? PreferenceOrigin::user : PreferenceOrigin::standard;
}

bool PreferencesStore::isLocked(std::string_view) const { return false; }

bool PreferencesStore::remove(std::string_view key) {
  if (isLocked(key)) return false;
  removeObject(key);
  return true;
}

std::int64_t PreferencesStore::integerForKey(std::string_view key) const {
  const auto* value = find(key);
  return value ? value->convertedToInteger().value_or(0) : 0;
}

bool PreferencesStore::boolForKey(std::string_view key) const {
  const auto* value = find(key);
  return value && value->convertedToBoolean().value_or(false);
}

std::optional<std::string> PreferencesStore::stringForKey(std::string_view key) const {
  const auto* value = find(key);
  return value ? value->convertedToString() : std::nullopt;
}

}  // namespace QEVSettings
