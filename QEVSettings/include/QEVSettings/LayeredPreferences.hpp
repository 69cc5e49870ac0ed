// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {
class PreferenceObservers;
}

namespace QEVSettings {

// A preferences store of several layers: what administrators locked, what the command line set for
// this run, the user's store, and the defaults of administrators. The first that has the key is
// in force. Writes go to the user's store, unless the key is locked.
//
// The administrators' layers are read-only files, property lists or JSON, in
// `HOST/locks.d` and `HOST/defaults.d` below each folder of $XDG_CONFIG_DIRS (/etc/xdg without it),
// HOST being the id of HostIdentity. The files of a folder are read in the order of their names,
// and the later one wins; an earlier folder of $XDG_CONFIG_DIRS wins over a later one. Only files
// that an administrator made count, as foundation::trustedFiles says. A file that is not used is
// reported in one line of diagnostics. An observed store watches the folders, and tells of what
// changes.
//
//     LayeredPreferences preferences(UserDefaults::standardUserDefaults());
//     QEVPreferencesMigration::migrateIfNeeded(preferences);   // the user's layer alone
//     preferences.origin(key);                                 // PreferenceOrigin::locked
//
// Main thread.
class LayeredPreferences final : public PreferencesStore {
public:
  struct Options {
    // For this run of the program.
    PreferenceDictionary commandLine = {};
    // The folders of the system's configuration, the most important first. Nothing stands for
    // those of the environment.
    std::optional<std::vector<std::filesystem::path>> configurationFolders = std::nullopt;
    // The numeric id of the user; nothing stands for the one that runs the program. For tests.
    std::optional<unsigned> person = std::nullopt;
    // Whether an administrator may lock a key. Empty: every key.
    std::function<bool(std::string_view key)> isLockable = {};
  };

  // The user's store outlives this one.
  explicit LayeredPreferences(PreferencesStore& person);
  LayeredPreferences(PreferencesStore& person, Options options);
  ~LayeredPreferences() override;

  const PreferenceValue* find(std::string_view key) const override;
  PreferenceDictionary dictionaryRepresentation() const override;
  void setObject(PreferenceValue value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  PreferenceOrigin origin(std::string_view key) const override;
  bool isLocked(std::string_view key) const override;
  PreferencesStore& personLayer() override { return person_; }
  [[nodiscard]] Subscription observe(std::string_view key, Observer observer) override;
  [[nodiscard]] Subscription observeAll(Observer observer) override;
  StoreOpening opening() const override { return person_.opening(); }
  std::optional<StorageProblem> storageProblem() const override { return person_.storageProblem(); }
  [[nodiscard]] Subscription observeStorage(std::function<void()> observer) override {
    return person_.observeStorage(std::move(observer));
  }

  // The keys that any layer has, in ascending order.
  std::vector<std::string> keys() const;

  // Why files of administrators are not used.
  const std::vector<std::string>& problems() const;

  // Reads the administrators' files again, as a change of them does.
  void reload();

private:
  struct Layers;

  bool refuses(std::string_view key) const;
  void read();
  void watch();

  PreferencesStore& person_;
  std::unique_ptr<Layers> layers_;
  std::shared_ptr<foundation::PreferenceObservers> observers_;
};

// What the user is told of a locked key, in one line.
std::string lockedMessage(std::string_view key);

}  // namespace QEVSettings
