// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "store/PreferencesFile.hpp"
#include "store/recovery/GoodCopy.hpp"
#include "store/recovery/RepairLock.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace foundation {

// The copies of damaged stores, which are kept as NAME.damaged-2026-11-24-101500.
std::vector<std::filesystem::path> damagedCopiesOf(const std::filesystem::path& store);

// What the caller knows of a store before it is opened.
enum class Suspicion {
  none,
  damaged,  // an operation met damage: the store is recovered unless it is found in order by now
  certain,  // it is recovered
};

struct OpeningRequest {
  Patience patience = Patience::aMoment;
  Suspicion suspicion = Suspicion::none;
  // What the process remembers of the store. Used where the store has an older change of the key or
  // none.
  std::span<const PreferenceChange> memory = {};
};

struct OpenedPreferences {
  std::unique_ptr<PreferencesFile> file;   // none when the store cannot be used
  std::vector<PreferenceChange> contents;  // all that could be read, whether there is a file or not
  std::optional<Error> error;              // why there is no file
  QEVSettings::StorageProblem problem = QEVSettings::StorageProblem::failing;
  QEVSettings::StoreOpening opening;
};

// Whether the store was damaged, and was rewritten.
bool wasRecovered(const QEVSettings::StoreOpening& opening);

// Opens a store and reads all of it. Creates the store when it is missing. Recovers it first when
// it is damaged, or lacks changes that its good copy has. Leaves a file alone that is not a store.
OpenedPreferences openPreferences(const std::filesystem::path& path, const OpeningRequest& request);

// Reads a store, or what can be recovered of a damaged one, and changes nothing on disk. The result
// has no file.
OpenedPreferences readPreferences(const std::filesystem::path& path);

// Removes a log whose file is gone, and its index; returns the changes in the log. Fails, and
// removes nothing, when the log cannot be read.
Result<std::vector<PreferenceChange>> takeAbandonedLog(const std::filesystem::path& store);

// Renews the good copy when the store changed since. When that finds damage, recovers the store
// first, reports that to the diagnostics, and returns the outcome. A copy that fails is made at the
// next occasion. Any thread; takes as long as reading and writing the whole store.
std::optional<QEVSettings::StoreOpening> keepGoodCopy(const std::filesystem::path& store);

}  // namespace foundation
