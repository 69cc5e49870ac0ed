// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingDefault.hpp"

#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/TimeZones.hpp"

namespace QEVSettings {

std::optional<PreferenceValue> defaultOf(const PreferenceDescriptor& descriptor) {
  if (descriptor.defaultValue) return descriptor.defaultValue;
  if (descriptor.key == kPrefTimezoneString.name)
    return PreferenceValue(foundation::currentTimeZoneName());
  return std::nullopt;
}

bool differsFromDefault(const PreferenceDescriptor& descriptor, const PreferenceValue& value) {
  const auto standard = defaultOf(descriptor);
  return !standard || !meanTheSame(descriptor, *standard, value);
}

bool isChangedByUser(const PreferenceDescriptor& descriptor, PreferencesStore& store) {
  const PreferenceValue* value = store.personLayer().find(descriptor.key);
  return value && differsFromDefault(descriptor, *value);
}

}  // namespace QEVSettings
