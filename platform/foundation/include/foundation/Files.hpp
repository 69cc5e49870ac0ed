#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace foundation {

// All that a file holds. Only a regular file of at most `maximumBytes` is read.
Result<std::string> readFile(const std::filesystem::path& path, std::size_t maximumBytes = std::size_t{1} << 30);

// Makes the file, or replaces all that it holds: at every moment either the old or the new contents stand
// there, and the new ones are on disk when this returns. A new file is readable by the user alone.
Outcome writeFile(const std::filesystem::path& path, std::string_view contents);

}  // namespace foundation
