// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <optional>
#include <string>

namespace QEVSettings {

// The messages of a window about its preferences store, in the user's language. QEVSettingsView
// shows them by itself; a host can show them in a window of its own. The model announces each
// change. Main thread.
//
//     StorageNotices notices(store);
//     if (const auto problem = notices.problem()) show(*problem);
class StorageNotices final : public foundation::ObservableObject {
public:
  // The store must outlive the model, which reads it only after the store announced a change of its
  // storage.
  explicit StorageNotices(PreferencesStore& store);
  // Marks the recovery as seen, because its window closes.
  ~StorageNotices() override;

  // Why changes cannot be saved at present.
  std::optional<std::string> problem() const;

  // The message that the store was restored or had to begin empty. The process shows each such
  // event once: until `dismissRecovery` is called in any window, or the first window that showed it
  // closes.
  std::optional<std::string> recovery() const;
  void dismissRecovery();

  bool isEmpty() const { return !problem() && !recovery(); }

private:
  StoreOpening opening_;
  std::optional<StorageProblem> problem_;
  foundation::Subscription storageSubscription_;
  foundation::Subscription seenSubscription_;
};

}  // namespace QEVSettings
