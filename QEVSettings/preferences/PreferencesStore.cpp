#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace QEVSettings {

std::optional<PreferenceValue> PreferencesStore::objectForKey(std::string_view key) const {
  const auto* value = find(key);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

Subscription PreferencesStore::observeStorage(std::function<void()>) { return {}; }

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
