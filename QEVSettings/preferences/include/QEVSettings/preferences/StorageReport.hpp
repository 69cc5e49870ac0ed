// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace QEVSettings {

// How a preferences store was opened. A recovery while the store is open replaces this report.
//
//     const StoreOpening opening = store.opening();
//     if (opening.outcome == StoreOpening::Outcome::restored) show(opening.message);
struct StoreOpening {
  enum class Outcome {
    opened,      // the file existed and was in order
    created,     // there was no file; the store created it
    restored,    // the file was damaged; values were recovered from it, its good copy or memory
    begunEmpty,  // the file and its good copy were damaged, and no value could be recovered
    inMemory,    // the file cannot be used; values are lost when the process ends
  };

  Outcome outcome = Outcome::opened;

  // One line for the user: what was done, why, and what could not be recovered. Empty for `opened`
  // and `created`.
  std::string message;

  // The time of the good copy from which values were restored.
  std::optional<PreferenceValue::Date> copyTime;

  // The number of keys that are known to be lost or to have an older value than the last one.
  std::size_t lostKeys = 0;
};

// Why a store cannot save changes to its file.
//
//     if (store.storageProblem() == StorageProblem::diskFull) show("Free some space on the disk.");
enum class StorageProblem {
  diskFull,
  notWritable,  // no permission for the file, its folder or its file system
  busy,         // another process holds the file
  unusable,  // the file is not a store, belongs to somebody else, or was written by a newer release
  noFile,    // there is no folder to keep a file in
  failing,   // any other failure of the disk or the system
};

}  // namespace QEVSettings
