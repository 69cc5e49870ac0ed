// SPDX-License-Identifier: MIT
#include "support/RecordingPreferencesStore.hpp"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <utility>

namespace support {

using QEVSettings::PreferenceValue;
using Kind = StoreOperation::Kind;

StoreOperation read(std::string_view key) { return {Kind::read, std::string(key), std::nullopt}; }
StoreOperation readAll() { return {Kind::readAll, "", std::nullopt}; }
StoreOperation wrote(std::string_view key, PreferenceValue value) {
  return {Kind::write, std::string(key), std::move(value)};
}
StoreOperation removed(std::string_view key) {
  return {Kind::remove, std::string(key), std::nullopt};
}

std::ostream& operator<<(std::ostream& out, const StoreOperation& operation) {
  switch (operation.kind) {
    case Kind::read: return out << "read " << operation.key;
    case Kind::readAll: return out << "read all";
    case Kind::remove: return out << "remove " << operation.key;
    case Kind::write: break;
  }
  out << "write " << operation.key << " = ";
  PrintTo(*operation.value, &out);
  return out;
}

std::vector<StoreOperation> RecordingPreferencesStore::changes() const {
  std::vector<StoreOperation> changes;
  std::copy_if(
      operations_.begin(), operations_.end(), std::back_inserter(changes),
      [](const auto& each) { return each.kind == Kind::write || each.kind == Kind::remove; });
  return changes;
}

const PreferenceValue* RecordingPreferencesStore::find(std::string_view key) const {
  operations_.push_back(read(key));
  return store_->find(key);
}

QEVSettings::PreferenceDictionary RecordingPreferencesStore::dictionaryRepresentation() const {
  operations_.push_back(readAll());
  return store_->dictionaryRepresentation();
}

void RecordingPreferencesStore::setObject(PreferenceValue value, std::string_view key) {
  operations_.push_back(wrote(key, value));
  store_->setObject(std::move(value), key);
}

void RecordingPreferencesStore::removeObject(std::string_view key) {
  operations_.push_back(removed(key));
  store_->removeObject(key);
}

QEVSettings::Subscription RecordingPreferencesStore::observe(std::string_view key,
                                                             Observer observer) {
  return store_->observe(key, std::move(observer));
}

QEVSettings::Subscription RecordingPreferencesStore::observeAll(Observer observer) {
  return store_->observeAll(std::move(observer));
}

QEVSettings::Subscription RecordingPreferencesStore::observeStorage(
    std::function<void()> observer) {
  return storageChanged_.subscribe(std::move(observer));
}

void RecordingPreferencesStore::setOpening(QEVSettings::StoreOpening opening) {
  opening_ = std::move(opening);
  storageChanged_.announce();
}

void RecordingPreferencesStore::setStorageProblem(
    std::optional<QEVSettings::StorageProblem> problem) {
  problem_ = problem;
  storageChanged_.announce();
}

}  // namespace support

namespace QEVSettings {

void PrintTo(const PreferenceValue& value, std::ostream* out) {
  *out << nameOf(value.type());
  if (const auto* bytes = value.asData()) {
    *out << " of " << bytes->size() << " bytes: " << std::string(bytes->begin(), bytes->end());
  } else if (const auto text = value.convertedToString()) {
    *out << " \"" << *text << '"';
  }
}

}  // namespace QEVSettings
