#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace QEVSettings {

// How a preferences store came to be open. Holds for as long as the store is open; a store whose
// file has to be recovered meanwhile replaces it.
struct StoreOpening {
  enum class Outcome {
    opened,      // the file was there and in order
    created,     // there was no file; one was made
    restored,    // the file was damaged; its values were recovered, from the good copy among other
                 // sources
    begunEmpty,  // the file and its good copy were damaged, and no value could be recovered
    inMemory,    // the file cannot be used; values live as long as the process
  };

  Outcome outcome = Outcome::opened;

  // One line for a person: what was done, why, and what could not be recovered. Empty when the file
  // was opened or created.
  std::string message;

  // When the good copy was made that values were restored from.
  std::optional<PreferenceValue::Date> copyTime;

  // How many keys are known to be lost, or known to be older than what was written last.
  std::size_t lostKeys = 0;
};

// Why the changes that a store holds in memory do not reach its file.
enum class StorageProblem {
  diskFull,
  notWritable,  // no permission for the file, its folder or its file system
  busy,         // another process holds the file
  unusable,  // the file is not a store, belongs to somebody else, or was written by a newer release
  noFile,    // there is no folder to keep a file in
  failing,   // any other failure of the disk or the system
};

}  // namespace QEVSettings
