// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "viewkit/View.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

// What one setting is for, in the user's language.
struct SettingExplanation {
  std::string title;
  std::string purpose;
  std::string key;
  // Empty for a default that cannot be told.
  std::string standard;
  // Where the value in force comes from.
  std::string origin;

  SettingExplanation(const PreferenceDescriptor& descriptor, const PreferencesStore& store);
};

// The content of the popover "What Is This?" of a row, which explains each of its settings.
viewkit::View explanationView(const std::vector<SettingExplanation>& settings);

}  // namespace QEVSettings
