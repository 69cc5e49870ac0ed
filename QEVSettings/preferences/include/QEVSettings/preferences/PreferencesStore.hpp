// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceOrigin.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "QEVSettings/preferences/StorageReport.hpp"
#include "QEVSettings/preferences/Subscription.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace QEVSettings {

// The per-user preferences store: a persistent map from keys to property-list values, shared by the
// processes of a user.
//
// Reading never writes. A value is safe from the end of the process once the write has returned. No
// operation throws or reports failure to its caller: a store that cannot use its file continues in
// memory, and `storageProblem` says why. Main thread.
//
//     store.setBool(true, "com_velloquin_qev_dns_checksums");
//     store.boolForKey("com_velloquin_qev_dns_checksums");  // true, in every process
class PreferencesStore {
public:
  using Observer = std::function<void(std::string_view key)>;

  PreferencesStore() = default;
  PreferencesStore(const PreferencesStore&) = delete;
  PreferencesStore& operator=(const PreferencesStore&) = delete;
  virtual ~PreferencesStore() = default;

  // The value under the key, or null. Copies nothing: the store owns the value, and the pointer is
  // valid until the next use of the store.
  virtual const PreferenceValue* find(std::string_view key) const = 0;

  // The same as a value to keep. Text and bytes are shared with the store.
  std::optional<PreferenceValue> objectForKey(std::string_view key) const;

  // A snapshot of all keys and values; of a store with layers, those of the user alone.
  virtual PreferenceDictionary dictionaryRepresentation() const = 0;

  virtual void setObject(PreferenceValue value, std::string_view key) = 0;

  // Removing an absent key does nothing.
  virtual void removeObject(std::string_view key) = 0;

  // Where the value under the key comes from. A store without layers is the user's own.
  virtual PreferenceOrigin origin(std::string_view key) const;

  // Whether an administrator has locked the key. A write to a locked key, and its removal, change
  // nothing, and are reported in one line of diagnostics.
  virtual bool isLocked(std::string_view key) const;

  // Removes the user's value. Returns false, and removes nothing, when the key is locked.
  bool remove(std::string_view key);

  // The layer that writes go to, without the layers above and below it. The store must outlive it.
  virtual PreferencesStore& personLayer() { return *this; }

  // Calls the observer with the key after its value was changed or removed: during the write when
  // the change was made through this object, and from the main queue when another process made it.
  // `observe` is for one key, `observeAll` for every key.
  [[nodiscard]] virtual Subscription observe(std::string_view key, Observer observer) = 0;
  [[nodiscard]] virtual Subscription observeAll(Observer observer) = 0;

  // How the store was opened, and why changes cannot be saved at present. A store without a file,
  // such as a test's, never has a problem.
  virtual StoreOpening opening() const { return {}; }
  virtual std::optional<StorageProblem> storageProblem() const { return std::nullopt; }

  // Calls the observer after each change of `opening` or `storageProblem`, on the main thread.
  [[nodiscard]] virtual Subscription observeStorage(std::function<void()> observer);

  // Typed reads, with the conversions that PreferenceValue documents. An absent value, or one that
  // does not convert, reads as 0, false or nothing.
  std::int64_t integerForKey(std::string_view key) const;
  bool boolForKey(std::string_view key) const;
  std::optional<std::string> stringForKey(std::string_view key) const;

  void setInteger(std::int64_t value, std::string_view key) { setObject(value, key); }
  void setBool(bool value, std::string_view key) { setObject(value, key); }
};

}  // namespace QEVSettings
