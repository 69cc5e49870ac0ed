// SPDX-License-Identifier: MIT
#include "store/FilePresence.hpp"

#include <sys/stat.h>

#include <cerrno>

namespace foundation {

Presence presenceOf(const std::filesystem::path& path) {
  struct stat found {};
  if (::lstat(path.c_str(), &found) == 0) return Presence::present;
  return errno == ENOENT ? Presence::absent : Presence::unknown;
}

}  // namespace foundation
