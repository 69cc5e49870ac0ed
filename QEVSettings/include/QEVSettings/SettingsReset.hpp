// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// Brings the settings of the page that is shown, or of all pages, back to their defaults: it
// removes the user's values. The window asks first and says how many settings change; afterwards
// one undo brings all of them back. Locked settings, and keys that no page shows, stay.
//
//     const auto reset = std::make_shared<SettingsReset>(history, catalogue);
//     reset->askToResetAll();
//
// An object of the environment of a settings window. Main thread.
class SettingsReset {
public:
  // Neither is null. The catalogue says which settings the pages have.
  SettingsReset(std::shared_ptr<ActionHistory> history,
                std::shared_ptr<SettingsCatalogue> catalogue);

  // Show the question, or that there is nothing to reset, in the window.
  void askToResetPage() const;
  void askToResetAll() const;

  // The name of the tab that the window shows, as in PreferencePlace. Said by the window's root
  // view.
  void setShownTab(std::string_view tab) { shownTab_ = tab; }

private:
  // Those with a value of the user's that fit the condition.
  std::vector<std::string> keys(const std::function<bool(const PreferenceDescriptor&)>& fits) const;
  std::size_t countChanged(const std::vector<std::string>& keys) const;
  PreferencesStore& store() const;
  void ask(std::vector<std::string> keys, const char* question, const char* nothingToDo,
           const char* name) const;

  std::shared_ptr<ActionHistory> history_;
  std::shared_ptr<SettingsCatalogue> catalogue_;
  std::string shownTab_;
};

}  // namespace QEVSettings
