// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/PreferenceHistory.hpp"

#include <functional>

namespace zorvantine {

// What a store of the host remembers: nothing while the setting for it is off, which an
// administrator may lock, and no values of settings that hold secrets. `preferences` returns the
// store with its layers; it is called at each change.
foundation::HistoryRules historyRules(
    std::function<const QEVSettings::PreferencesStore&()> preferences);

}  // namespace zorvantine
