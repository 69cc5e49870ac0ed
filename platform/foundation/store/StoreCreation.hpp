#pragma once

#include "foundation/Result.hpp"

#include <filesystem>
#include <string>

namespace foundation {

// Puts the names of a folder's files on disk.
void syncFolder(const std::filesystem::path& folder);

// Makes the folders that are missing, for this user alone whatever the umask.
Outcome makeFolders(const std::filesystem::path& folder);

// Makes an empty store where there is no file. It appears complete or not at all, and takes no
// other file's place.
Outcome makeStore(const std::filesystem::path& store);

// Removes a database of which nobody has heard yet, with what SQLite may have put next to it.
void removeUnsharedStore(const std::filesystem::path& path);

std::string textOfError(int number);

}  // namespace foundation
