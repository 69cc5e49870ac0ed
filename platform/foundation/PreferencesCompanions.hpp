#pragma once

#include "foundation/Result.hpp"

#include <filesystem>
#include <optional>

namespace foundation {

// Why SQLite must not open the store: its log, the index of the log or its journal (NAME-wal, NAME-shm,
// NAME-journal) is no regular file of this user. Opening a pipe would wait for ever.
std::optional<Error> companionProblem(const std::filesystem::path& store);

}  // namespace foundation
