// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingChange.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace QEVSettings {

// A preferences store over another one that reports what is written through it. A settings window
// and its models use it as their store, so that what the user of the window changes is known apart
// from what other windows and other processes change.
//
//     RecordingPreferences recording(store);
//     const Subscription recorded = recording.record([](const SettingChange& change) { … });
//     const viewkit::Environment environment{.defaultStore = recording};
//
// Reads, observers and reports are those of the store below. Main thread.
class RecordingPreferences final : public PreferencesStore {
public:
  using Recorder = std::function<void(const SettingChange&)>;

  // The store outlives this one.
  explicit RecordingPreferences(PreferencesStore& store);

  // Calls the recorder after each write that changed the user's value, until the subscription ends.
  // A second recorder takes the place of the first.
  [[nodiscard]] Subscription record(Recorder recorder);

  const PreferenceValue* find(std::string_view key) const override { return store_.find(key); }
  PreferenceDictionary dictionaryRepresentation() const override {
    return store_.dictionaryRepresentation();
  }
  void setObject(PreferenceValue value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  PreferenceOrigin origin(std::string_view key) const override { return store_.origin(key); }
  bool isLocked(std::string_view key) const override { return store_.isLocked(key); }
  PreferencesStore& personLayer() override { return store_.personLayer(); }
  [[nodiscard]] Subscription observe(std::string_view key, Observer observer) override {
    return store_.observe(key, std::move(observer));
  }
  [[nodiscard]] Subscription observeAll(Observer observer) override {
    return store_.observeAll(std::move(observer));
  }
  StoreOpening opening() const override { return store_.opening(); }
  std::optional<StorageProblem> storageProblem() const override { return store_.storageProblem(); }
  [[nodiscard]] Subscription observeStorage(std::function<void()> observer) override {
    return store_.observeStorage(std::move(observer));
  }

private:
  void recordAround(std::string_view key, const std::function<void()>& write);

  PreferencesStore& store_;
  // Shared with subscriptions, which may outlive the store.
  std::shared_ptr<std::shared_ptr<const Recorder>> recorder_;
};

}  // namespace QEVSettings
