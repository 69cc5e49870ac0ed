#pragma once

#include "store/recovery/RawDatabaseFile.hpp"

#include <filesystem>
#include <optional>

namespace foundation {

// A database with its log taken over, as bytes that SQLite opens in memory. Takes no lock, makes no
// file and changes none; a database in use is read as it stood after one of its transactions.
// Nothing when it cannot be read.
std::optional<FileBytes> snapshotOfDatabase(const std::filesystem::path& path);

}  // namespace foundation
