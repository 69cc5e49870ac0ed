// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/Result.hpp"
#include "foundation/UUID.hpp"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {
class PreferenceObservers;
}

namespace QEVSettings {

// Writes settings as their pages do, for what changes a setting without its control: a reset, an
// undo, a search.
//
//     const auto writer = std::make_shared<SettingWriter>(
//         preferences, SettingWriter::Doors{.appDelegate = delegate, .updater = updater});
//     if (const auto written = writer->write(key, std::nullopt); !written)
//       show(written.error().message);
//
// A list of protocols is registered with its analyzer, which may refuse it, and two notifications
// are posted. The application takes on an appearance that was written. A setting of the updater is
// set at the updater. All other settings are only stored. Main thread.
class SettingWriter {
public:
  // What is told of a write beside the store. Either may be null, and is left out then.
  struct Doors {
    std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate = {};
    std::shared_ptr<UpdaterViewModel> updater = {};
  };

  // Nothing as the value removes the user's value, so that the default is in force.
  struct Setting {
    std::string key;
    std::optional<PreferenceValue> value;
  };

  // A setting that was not written, and why, in the user's language.
  struct Refusal {
    std::string key;
    std::string message;
  };

  // Why an analyzer refused a list, for the row of the record; without a record for the list as a
  // whole.
  struct RowRefusal {
    std::optional<foundation::UUID> record;
    QEVDependencies::ErrorState state;
  };

  // The store outlives the writer.
  explicit SettingWriter(PreferencesStore& store) : SettingWriter(store, Doors()) {}
  SettingWriter(PreferencesStore& store, Doors doors);

  PreferencesStore& store() const { return store_; }

  // Writes one setting, or removes the user's value. Fails, and changes nothing, when the key is
  // locked or the analyzer refuses. The error is in the user's language.
  foundation::Outcome write(std::string_view key, std::optional<PreferenceValue> value);

  // Writes several settings in this order, as one change of the appearance where keys of it are
  // among them. A refused setting does not stop the others.
  std::vector<Refusal> writeAll(const std::vector<Setting>& settings);
  // Removes the user's values of the keys in the same way.
  std::vector<Refusal> resetAll(const std::vector<std::string>& keys);

  // For pages that show more than the stored value. The observer is called after each write of the
  // key by this object, refused or not.
  [[nodiscard]] Subscription observe(std::string_view key, PreferencesStore::Observer observer);
  // The refusal of the last write of this key, if no page has taken it yet.
  std::optional<RowRefusal> takeRefusal(std::string_view key);

private:
  foundation::Outcome writeOne(const Setting& setting);
  void storeValue(const Setting& setting);
  bool writeToUpdater(const Setting& setting);
  foundation::Outcome writePorts(const Setting& setting);
  void applyAppearance() const;

  PreferencesStore& store_;
  Doors doors_;
  std::map<std::string, RowRefusal, std::less<>> refusals_;
  std::shared_ptr<foundation::PreferenceObservers> observers_;
};

}  // namespace QEVSettings
