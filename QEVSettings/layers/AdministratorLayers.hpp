// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace QEVSettings {

// What administrators set, in the form of the current schema.
struct AdministratorLayers {
  PreferenceDictionary locks = {};
  PreferenceDictionary defaults = {};
  // One line for each file or folder that is not used.
  std::vector<std::string> problems = {};
};

// The folders `locks.d` and `defaults.d` of a host, below each folder of the system's
// configuration. The last is the most important.
std::vector<std::filesystem::path> administratorFolders(
    const std::vector<std::filesystem::path>& configuration);

// Reads the files of these folders. A file that cannot be read is left out.
AdministratorLayers readAdministratorLayers(const std::vector<std::filesystem::path>& folders,
                                            unsigned person);

}  // namespace QEVSettings
