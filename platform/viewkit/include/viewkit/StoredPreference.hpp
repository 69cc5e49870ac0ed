// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKey.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/Dependents.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/ViewProperty.hpp"

#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace viewkit {

// How a type is kept in the store: what it reads as, and nothing where the stored value is no such.
inline std::optional<bool> readPreference(const QEVSettings::PreferenceValue& value, const bool&) {
  return value.convertedToBoolean();
}
inline std::optional<std::int64_t> readPreference(const QEVSettings::PreferenceValue& value,
                                                  const std::int64_t&) {
  return value.convertedToInteger();
}
inline std::optional<std::string> readPreference(const QEVSettings::PreferenceValue& value,
                                                 const std::string&) {
  return value.convertedToString();
}

// The binding of a view to a key, which lives as long as the identity of the view.
// See StoredPreference.
template <class T>
struct PreferenceSlot : Slot {
  PreferenceSlot(QEVSettings::PreferencesStore& preferences, std::string name, T fallback)
      : store(preferences), key(std::move(name)), defaultValue(std::move(fallback)) {
    observe();
  }

  void follow(const std::string& name, const T& fallback) {
    defaultValue = fallback;
    if (name == key) return;
    key = name;
    observe();
  }

  void observe() {
    subscription = store.observe(key, [this](std::string_view) { dependents.markAll(); });
  }

  T read() {
    dependents.recordRead();
    const auto stored = store.objectForKey(key);
    return stored ? readPreference(*stored, defaultValue).value_or(defaultValue) : defaultValue;
  }

  void write(T value) {
    QEVSettings::PreferenceValue stored = std::move(value);
    written = stored;
    store.setObject(std::move(stored), key);
  }

  QEVSettings::PreferencesStore& store;
  std::string key;
  T defaultValue;
  Dependents dependents;
  QEVSettings::Subscription subscription;
  // What the view wrote last since the last checkpoint.
  std::optional<QEVSettings::PreferenceValue> written;
};

// A value of the environment's default store, bound to its key: reads with a default and never
// writes it, writes at once, and runs the bodies that read it again when anyone, in this process or
// another, changes the key. For Booleans, integers and strings.
//
//     struct HintsToggle {
//       StoredPreference<bool> hints{"com_velloquin_zorvantine_hints", true};
//       View body() const { return Toggle(hints.binding()).disabled(hints.isLocked()); }
//     };
template <class T>
class StoredPreference : public ViewProperty<PreferenceSlot<T>> {
public:
  template <std::convertible_to<T> Default>
  StoredPreference(const QEVSettings::PreferenceKey<T, Default>& key)
      : key_(key.name), defaultValue_(key.defaultValue) {}
  StoredPreference(std::string_view key, T defaultValue)
      : key_(key), defaultValue_(std::move(defaultValue)) {}

  const std::string& key() const { return key_; }

  T get() const { return followed()->read(); }
  operator T() const { return get(); }

  void set(T value) const {
    auto& slot = this->slot();
    if (slot.key == key_) {
      slot.write(std::move(value));
    } else {
      slot.store.setObject(std::move(value), key_);
    }
  }

  // Whether an administrator has locked the key. Runs the body again when that changes.
  bool isLocked() const {
    const auto slot = followed();
    slot->dependents.recordRead();
    return slot->store.isLocked(slot->key);
  }

  Binding<T> binding() const {
    const auto slot = followed();
    return {[slot] { return slot->read(); }, [slot](T value) { slot->write(std::move(value)); }};
  }

  // Remembers what is stored now, even if that is nothing or no T. The function brings it back,
  // unless someone else has changed the key since this view wrote it last.
  std::function<void()> checkpoint() const {
    const auto slot = followed();
    slot->written = std::nullopt;
    return [slot, key = slot->key, before = slot->store.objectForKey(slot->key)] {
      const bool isOwn = slot->written && slot->store.objectForKey(key) == slot->written;
      if (!isOwn) return;
      if (before) {
        slot->store.setObject(*before, key);
      } else {
        slot->store.removeObject(key);
      }
    };
  }

  friend bool operator==(const StoredPreference& a, const StoredPreference& b) {
    return a.key_ == b.key_ && a.defaultValue_ == b.defaultValue_;
  }

private:
  // With the key of the view's newest description.
  std::shared_ptr<PreferenceSlot<T>> followed() const {
    auto slot = this->sharedSlot();
    if (belongsToRunningBody(this)) slot->follow(key_, defaultValue_);
    return slot;
  }

  std::shared_ptr<PreferenceSlot<T>> makeSlot() const override {
    return std::make_shared<PreferenceSlot<T>>(Environment::current().defaultStore.get(), key_,
                                               defaultValue_);
  }

  std::string key_;
  T defaultValue_;
};

}  // namespace viewkit
