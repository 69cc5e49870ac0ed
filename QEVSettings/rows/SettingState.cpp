// SPDX-License-Identifier: MIT
#include "rows/SettingState.hpp"

#include "QEVSettings/SettingDefault.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace QEVSettings {

SettingState::SettingState(PreferencesStore& store, std::shared_ptr<SettingsCatalogue> catalogue)
    : store_(store), catalogue_(std::move(catalogue)) {}

void SettingState::follow(const std::vector<std::string>& keys) {
  if (keys == keys_) return;
  keys_ = keys;
  subscriptions_.clear();
  for (const std::string& key : keys_)
    subscriptions_.push_back(store_.observe(key, [this](std::string_view) { refresh(); }));
  isChanged_ = computeChanged();
}

bool SettingState::computeChanged() const {
  // The catalogue is asked last: it may have to ask every analyzer.
  return std::ranges::any_of(keys_, [&](const std::string& key) {
    if (store_.personLayer().find(key) == nullptr) return false;
    const PreferenceDescriptor* descriptor = catalogue_->find(key);
    return descriptor && isChangedByUser(*descriptor, store_);
  });
}

void SettingState::refresh() {
  const bool isChanged = computeChanged();
  if (isChanged == isChanged_) return;
  objectWillChange().announce();
  isChanged_ = isChanged;
}

}  // namespace QEVSettings
