// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace foundation {

// The contents of a file. An error unless it is a regular file of at most `maximumBytes`.
Result<std::string> readFile(const std::filesystem::path& path,
                             std::size_t maximumBytes = std::size_t{1} << 30);

// Creates the file or replaces its contents. The replacement is atomic, and the new contents are on
// disk when this returns. Only the user may read a new file.
Outcome writeFile(const std::filesystem::path& path, std::string_view contents);

}  // namespace foundation
