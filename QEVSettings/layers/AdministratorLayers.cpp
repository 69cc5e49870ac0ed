// SPDX-License-Identifier: MIT
#include "layers/AdministratorLayers.hpp"

#include "QEVSettings/PreferenceListReader.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "foundation/Files.hpp"
#include "foundation/Result.hpp"
#include "foundation/TrustedFiles.hpp"

#include <new>
#include <ranges>
#include <utility>

namespace QEVSettings {

using foundation::Error;
using foundation::Result;

namespace {

constexpr std::size_t kLargestFile = std::size_t{16} << 20;
constexpr const char* kLocks = "locks.d";
constexpr const char* kDefaults = "defaults.d";

Result<PreferenceDictionary> read(const std::filesystem::path& file) {
  try {
    auto bytes = foundation::readFile(file, kLargestFile);
    if (!bytes) return bytes.error();
    auto list = readWrittenPreferenceList(*std::move(bytes));
    if (!list) return Error{file.string() + ": " + list.error().message};
    auto current = inCurrentSchema(*std::move(list));
    if (!current) return Error{file.string() + ": " + current.error().message};
    return std::move((*current).values);
  } catch (const std::bad_alloc&) {
    return Error{file.string() + " needs more memory than there is"};
  }
}

}  // namespace

std::vector<std::filesystem::path> administratorFolders(
    const std::vector<std::filesystem::path>& configuration) {
  std::vector<std::filesystem::path> folders;
  for (const auto& folder : std::views::reverse(configuration)) {
    for (const char* const name : {kDefaults, kLocks})
      folders.push_back(folder / HostIdentity::current().id / name);
  }
  return folders;
}

AdministratorLayers readAdministratorLayers(const std::vector<std::filesystem::path>& folders,
                                            unsigned person) {
  AdministratorLayers layers;
  for (const auto& folder : folders) {
    auto trusted = foundation::trustedFiles(folder, person);
    for (std::string& problem : trusted.problems) layers.problems.push_back(std::move(problem));
    PreferenceDictionary& layer = folder.filename() == kLocks ? layers.locks : layers.defaults;
    for (const auto& file : trusted.files) {
      auto list = read(file);
      if (!list) {
        layers.problems.push_back("the file is not used: " + list.error().message);
        continue;
      }
      for (const auto& [key, value] : *list) layer.insert_or_assign(key, value);
    }
  }
  return layers;
}

}  // namespace QEVSettings
