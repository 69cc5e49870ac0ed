// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <memory>
#include <string>
#include <vector>

namespace QEVSettings {

// Whether the user changed one of the settings of a row from its default. Follows the store, and
// announces when the answer changes. Main thread.
class SettingState final : public foundation::ObservableObject {
public:
  // The store outlives the state.
  SettingState(PreferencesStore& store, std::shared_ptr<SettingsCatalogue> catalogue);

  // The settings of the row from now on. Announces nothing.
  void follow(const std::vector<std::string>& keys);

  bool isChanged() const { return isChanged_; }

private:
  bool computeChanged() const;
  void refresh();

  PreferencesStore& store_;
  std::shared_ptr<SettingsCatalogue> catalogue_;
  std::vector<std::string> keys_;
  std::vector<Subscription> subscriptions_;
  bool isChanged_ = false;
};

}  // namespace QEVSettings
