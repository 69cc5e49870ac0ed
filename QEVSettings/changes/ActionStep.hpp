// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingChange.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace QEVSettings {

// What one action of the user changed. A key has one change at most, and no change is without an
// effect.
struct ActionStep {
  std::vector<SettingChange> changes = {};
  // In the user's language, in place of the names of the settings. May be empty.
  std::string name = {};
  // As viewkit::runningGesture numbers them.
  std::uint64_t gesture = 0;

  // Adds a later change to the action. Returns false, and adds nothing, when somebody else has
  // written the key since the action did.
  bool add(const SettingChange& change);

  // Whether the action wrote this key and no other.
  bool isOf(const std::string& key) const { return changes.size() == 1 && changes[0].key == key; }

  // The memory that the step holds, in bytes, as if no value was shared.
  std::size_t size() const;
};

// The changes of a step by setting: the two keys of the appearance are one setting.
std::vector<std::vector<SettingChange>> bySetting(const std::vector<SettingChange>& changes);

}  // namespace QEVSettings
