// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "store/recovery/RawDatabaseFile.hpp"

#include <filesystem>

namespace foundation {

struct DatabaseSnapshot {
  FileBytes bytes;  // SQLite can open them in memory
  // Whether the log is damaged, so that transactions may be missing.
  bool hasLostTransactions = false;
};

// A database with its log taken over. Takes no lock, makes no file and changes none; a database in
// use is read as it was after one of its transactions. Fails when the file or its log cannot be
// read.
Result<DatabaseSnapshot> snapshotOfDatabase(const std::filesystem::path& path);

}  // namespace foundation
