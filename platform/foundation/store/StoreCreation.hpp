// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <filesystem>
#include <string>

namespace foundation {

// Writes the names in a folder to the disk.
void syncFolder(const std::filesystem::path& folder);

// Creates missing folders, for this user only, whatever the umask.
Outcome makeFolders(const std::filesystem::path& folder);

// Creates an empty store, complete or not at all. Succeeds and changes nothing when there is a file
// already.
Outcome makeStore(const std::filesystem::path& store);

// Removes a database that no other process uses, with the files that SQLite may have put next to
// it.
void removeUnsharedStore(const std::filesystem::path& path);

std::string textOfError(int number);

}  // namespace foundation
