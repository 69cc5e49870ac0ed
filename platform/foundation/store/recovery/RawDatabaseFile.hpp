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

// Bytes of a database file, past SQLite's pages. They are read and written through SQLite's own
// file layer: closing any other descriptor of a file would drop the locks that SQLite holds on it
// in this process.

// At most `most` bytes from the start of the file. Nothing unless it is a regular file of this user
// that can be read; no link is followed.
std::optional<FileBytes> readRawDatabaseFile(
    const std::filesystem::path& path, std::size_t most = std::numeric_limits<std::size_t>::max());

// The same bytes; none of a file that is missing, or that is no regular file of this user. Fails
// when the system refuses to give them: a file that cannot be read must not be taken for an empty
// one.
Result<FileBytes> readRawDatabaseFileIfThere(
    const std::filesystem::path& path, std::size_t most = std::numeric_limits<std::size_t>::max());

// That the system refuses to look a name up, or to read its file.
Error unreadable(const std::filesystem::path& path);

// Replaces the first bytes of the file; says whether they are on disk.
bool overwriteStartOfFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace foundation
