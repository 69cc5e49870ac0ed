#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <optional>
#include <string>

namespace QEVSettings {

// What a window has to say of its preferences store, in the person's language. QEVSettingsView
// shows it by itself; a host that shows it in a window of its own observes this model. Announces
// each change. Main thread.
class StorageNotices final : public foundation::ObservableObject {
public:
  // Looks at the store when it announces a change of its storage, and at no other time.
  explicit StorageNotices(PreferencesStore& store);
  // The window is closing: what `recovery` says counts as seen.
  ~StorageNotices() override;

  // Why changes do not reach the file, for as long as they do not.
  std::optional<std::string> problem() const;

  // That the store was restored or begun empty. Each such event is reported once in a process:
  // until `dismissRecovery` is called in any window, or the first window that reported it closes.
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
