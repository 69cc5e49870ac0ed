// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace foundation {

using FileBytes = std::vector<std::uint8_t>;

// Access to the bytes of a database file without SQLite's pages. It uses SQLite's own file layer
// unless SQLite has no store open in this process: see SQLiteFileUse.

// The first `most` bytes of the file, or all. Nothing unless it is a regular file of this user that
// can be read; links are not followed.
std::optional<FileBytes> readRawDatabaseFile(
    const std::filesystem::path& path, std::size_t most = std::numeric_limits<std::size_t>::max());

// The same, but empty when the file is missing, or is not a regular file of this user. Fails when
// the system refuses to read it: such a file must not be taken for an empty one.
Result<FileBytes> readRawDatabaseFileIfThere(
    const std::filesystem::path& path, std::size_t most = std::numeric_limits<std::size_t>::max());

// The error for a path that the system refuses to look up or to read.
Error unreadable(const std::filesystem::path& path);

// Replaces the first bytes of the file; returns whether they are on the disk.
bool overwriteStartOfFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace foundation
