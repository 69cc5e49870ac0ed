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

// Stores that were damaged are kept next to the store as NAME.damaged-2026-11-24-101500.
std::vector<std::filesystem::path> damagedCopiesOf(const std::filesystem::path& store);

// What is known of a store before it is opened.
enum class Suspicion {
  none,
  damaged,  // an operation met damage: the store is recovered unless it is found in order by now
  certain,  // it is recovered
};

struct OpeningRequest {
  Patience patience = Patience::aMoment;
  Suspicion suspicion = Suspicion::none;
  // What a process remembers of the store, to be used where the store has older changes or none.
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

// Opens a store, which is made where there is none, and reads it to its end. A damaged store, or
// one that lacks changes that its good copy has, is recovered first. What is no store of ours is
// left alone.
OpenedPreferences openPreferences(const std::filesystem::path& store,
                                  const OpeningRequest& request);

// Reads a store, or what can be had of a damaged one, and leaves the disk as it is. There is never
// a file in the result.
OpenedPreferences readPreferences(const std::filesystem::path& store);

// Removes a log that belongs to a file that is gone, and its index; what the log holds. Fails, and
// removes nothing, when the log cannot be read.
Result<std::vector<PreferenceChange>> takeAbandonedLog(const std::filesystem::path& store);

// Makes the good copy anew when the store changed since. A store that turns out to be damaged is
// recovered first; the result is the outcome of that recovery, which was reported to the
// diagnostics. A copy that fails is made at the next occasion. Any thread; takes as long as reading
// and writing the whole store.
std::optional<QEVSettings::StoreOpening> keepGoodCopy(const std::filesystem::path& store);

}  // namespace foundation
