// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/PreferenceHistory.hpp"
#include "foundation/Result.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace zorvantine {

// The newest changes of a history, the newest first, that were made after a time. The history ends
// there: what is behind an older change is not looked at, because the clock may have gone back.
// Fails when the history may not reach back to that time.
foundation::Result<std::vector<foundation::RememberedChange>> changesSince(
    std::span<const foundation::RememberedChange> history, QEVSettings::PreferenceValue::Date time);

// What brings the keys of the newest changes of a history back to what they held before. Fails, in
// the user's language, when a value was not kept, and when a program that keeps no history has
// changed a key since.
foundation::Result<foundation::UserDefaults::Changes> reversalOf(
    std::span<const foundation::RememberedChange> newest);

}  // namespace zorvantine
