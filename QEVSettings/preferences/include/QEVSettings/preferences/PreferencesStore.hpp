#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "QEVSettings/preferences/StorageReport.hpp"
#include "QEVSettings/preferences/Subscription.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace QEVSettings {

// The per-user preferences store, as the settings module and the host's other modules see it: a map
// from keys to property-list values that outlives every process that uses it.
//
// Used on the main thread. Reading never writes; a write that returned outlives the process,
// however it ends. No operation throws or fails towards the caller: a store that cannot reach its
// file goes on in memory and says so where the host asks for it.
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

  // The value under the key with its own type, or none. Nothing is copied: it belongs to the store,
  // and is gone or another one once the store is used again.
  virtual const PreferenceValue* find(std::string_view key) const = 0;

  // The same, to keep; text and bytes are shared with the store.
  std::optional<PreferenceValue> objectForKey(std::string_view key) const;

  // Every key with its value, as it stands now.
  virtual PreferenceDictionary dictionaryRepresentation() const = 0;

  virtual void setObject(PreferenceValue value, std::string_view key) = 0;

  // Removing an absent key does nothing.
  virtual void removeObject(std::string_view key) = 0;

  // Calls the observer with the key after a write that changed its value, or that removed it,
  // whoever made it: within the write when it was made through this object, from a later turn of
  // the main queue when another process made it. `observe` is for one key, `observeAll` for every
  // key.
  [[nodiscard]] virtual Subscription observe(std::string_view key, Observer observer) = 0;
  [[nodiscard]] virtual Subscription observeAll(Observer observer) = 0;

  // How the store was opened, and why changes do not reach its file at present (nothing while they
  // do). A store without a file, such as a test's, has no problem to report.
  virtual StoreOpening opening() const { return {}; }
  virtual std::optional<StorageProblem> storageProblem() const { return std::nullopt; }

  // Calls the observer after `opening` or `storageProblem` changed, on the main thread.
  [[nodiscard]] virtual Subscription observeStorage(std::function<void()> observer);

  // Typed reads, with the conversions that PreferenceValue documents; absent, or a value of a type
  // that does not convert, is 0, false or nothing.
  std::int64_t integerForKey(std::string_view key) const;
  bool boolForKey(std::string_view key) const;
  std::optional<std::string> stringForKey(std::string_view key) const;

  void setInteger(std::int64_t value, std::string_view key) { setObject(value, key); }
  void setBool(bool value, std::string_view key) { setObject(value, key); }
};

}  // namespace QEVSettings
