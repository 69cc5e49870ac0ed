// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <optional>

namespace QEVSettings {

// How the values of a setting compare with its default. Main thread.
//
//     if (isChangedByUser(*catalogue.find(key), store)) mark(key);

// The default of a setting, where this machine can tell it; nothing for a font, whose default the
// desktop decides, and for a colour, whose default is a random one.
std::optional<PreferenceValue> defaultOf(const PreferenceDescriptor& descriptor);

// Whether a value means something else than the default. Every value of a setting without a default
// does.
bool differsFromDefault(const PreferenceDescriptor& descriptor, const PreferenceValue& value);

// Whether the user's own layer of the store has a value that differs from the default, in force or
// not.
bool isChangedByUser(const PreferenceDescriptor& descriptor, PreferencesStore& store);

}  // namespace QEVSettings
