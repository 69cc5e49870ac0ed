// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"
#include "foundation/UserDefaults.hpp"

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace support {

// One operation on a store.
struct StoreOperation {
  enum class Kind { read, readAll, write, remove };

  Kind kind = Kind::read;
  std::string key;
  // The value that was written.
  std::optional<QEVSettings::PreferenceValue> value;

  friend bool operator==(const StoreOperation&, const StoreOperation&) = default;
};

StoreOperation read(std::string_view key);
StoreOperation readAll();
StoreOperation wrote(std::string_view key, QEVSettings::PreferenceValue value);
StoreOperation removed(std::string_view key);

std::ostream& operator<<(std::ostream& out, const StoreOperation& operation);

// A store in memory that records the operations on it.
//
//     RecordingPreferencesStore store;
//     …
//     EXPECT_THAT(store.changes(), ElementsAre(wrote(kKey, "dark")));
class RecordingPreferencesStore final : public QEVSettings::PreferencesStore {
public:
  // All operations in order.
  const std::vector<StoreOperation>& operations() const { return operations_; }
  // The writes and the removals in order.
  std::vector<StoreOperation> changes() const;
  void forget() { operations_.clear(); }

  // The store inside. Operations on it are observed but not recorded.
  foundation::UserDefaults& underneath() { return *store_; }

  // Sets what the store reports, and tells the observers of the storage.
  void setOpening(QEVSettings::StoreOpening opening);
  void setStorageProblem(std::optional<QEVSettings::StorageProblem> problem);

  const QEVSettings::PreferenceValue* find(std::string_view key) const override;
  QEVSettings::PreferenceDictionary dictionaryRepresentation() const override;
  void setObject(QEVSettings::PreferenceValue value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  [[nodiscard]] QEVSettings::Subscription observe(std::string_view key, Observer observer) override;
  [[nodiscard]] QEVSettings::Subscription observeAll(Observer observer) override;
  QEVSettings::StoreOpening opening() const override { return opening_; }
  std::optional<QEVSettings::StorageProblem> storageProblem() const override { return problem_; }
  [[nodiscard]] QEVSettings::Subscription observeStorage(std::function<void()> observer) override;

private:
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  mutable std::vector<StoreOperation> operations_;
  QEVSettings::StoreOpening opening_;
  std::optional<QEVSettings::StorageProblem> problem_;
  foundation::Announcer storageChanged_;
};

}  // namespace support

namespace QEVSettings {
// Prints a value for GoogleTest.
void PrintTo(const PreferenceValue& value, std::ostream* out);
}  // namespace QEVSettings
