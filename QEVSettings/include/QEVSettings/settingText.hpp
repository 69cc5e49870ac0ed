// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <string>
#include <string_view>

namespace QEVSettings {

// What the user is told of a setting, in the user's language. Main thread.
//
//     if (const auto* known = settings.current().find(key)) show(settingText(known->purpose));

// A title or a purpose of a descriptor. The module, its sibling modules and the host each translate
// those of their own settings.
std::string settingText(std::string_view key);

// A value in words: "On", "Dark", "DNS 53, Multicast DNS 5353".
std::string valueText(const PreferenceDescriptor& descriptor, const PreferenceValue& value);

// The default in words. Where this machine decides it, what it decides: "System font".
std::string defaultText(const PreferenceDescriptor& descriptor);

// Where the value in force comes from: "Set by you", "Set by your organization".
std::string originText(const PreferencesStore& store, std::string_view key);

// The first characters of a text for a place of limited width; a text that is cut ends with "…".
std::string firstCharacters(const std::string& text, std::size_t count);

}  // namespace QEVSettings
