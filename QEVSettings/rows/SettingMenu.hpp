// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "rows/SettingExplanation.hpp"
#include "viewkit/Control.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QEVSettings {

// What a row offers for its settings. Main thread.
struct SettingMenu {
  std::vector<std::string> keys;
  std::reference_wrapper<PreferencesStore> store;
  std::shared_ptr<SettingsCatalogue> catalogue;
  // Null where the window resets nothing.
  std::shared_ptr<SettingWriter> writer;

  // The items of the context menu. `explain` opens the explanations.
  std::vector<viewkit::MenuItem> items(std::function<void()> explain) const;

  // Of the settings that the catalogue describes.
  std::vector<SettingExplanation> explanations() const;

private:
  // The keys that the user may change.
  std::vector<std::string> changeableKeys() const;
  std::string resetTitle() const;
  void reset() const;
};

}  // namespace QEVSettings
