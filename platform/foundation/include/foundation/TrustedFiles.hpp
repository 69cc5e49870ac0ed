// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foundation {

// The configuration folders of the system, $XDG_CONFIG_DIRS or /etc/xdg, the most important first.
// A relative path counts as none, and a second mention of a folder too.
std::vector<std::filesystem::path> systemConfigurationFolders();

// The files of an administrator's folder.
//
//     const TrustedFiles trusted = trustedFiles("/etc/xdg/analyzer/locks.d", currentPerson());
//     for (const auto& file : trusted.files) read(file);
//     for (const auto& problem : trusted.problems) report(problem);
struct TrustedFiles {
  // In the order of their names. Names that begin with a dot, or end with "~", are left out.
  std::vector<std::filesystem::path> files = {};
  // One line for each folder or file that was refused, which says what to do.
  std::vector<std::string> problems = {};
};

// The numeric id of the user who runs the program.
unsigned currentPerson();

// Lists the regular files of a folder that only an administrator can have made: each part of the
// path that leads to the folder, links included, belongs to root or to the owner of the folder, who
// is not the user; nobody else may write to it, and the same is true of each file. When root
// itself is the user, root is an administrator all the same. A folder that does not exist has no
// files.
TrustedFiles trustedFiles(const std::filesystem::path& folder, unsigned person);

}  // namespace foundation
