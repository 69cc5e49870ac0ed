// SPDX-License-Identifier: MIT
#include "profiles/Profiles.hpp"

#include "foundation/Unicode.hpp"
#include "foundation/UserDefaults.hpp"

#include <algorithm>
#include <system_error>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::Result;
using foundation::UserDefaults;

namespace {

constexpr std::size_t kLongestName = 100;
constexpr const char* kFolder = "profiles";

// The file of the standard profile. --profile makes another file the standard store of the process,
// so this is looked up before.
const std::filesystem::path& standardFile() {
  static const std::filesystem::path file = UserDefaults::standardFile();
  return file;
}

std::filesystem::path folderOf(const std::string& name) {
  return standardFile().parent_path() / kFolder / name;
}

std::string quoted(const std::string& name) { return "“" + name + "”"; }

Error failed(const char* what, const std::string& name, const std::error_code& error) {
  return Error{"the profile " + quoted(name) + " cannot be " + what + " (" + error.message() +
               "); check the rights of " + folderOf(name).parent_path().string()};
}

}  // namespace

Result<std::string> checkedProfileName(std::string_view name) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
  const bool isFit =
      !name.empty() && name.size() <= kLongestName && foundation::isValidUtf8(name) &&
      !name.starts_with('.') && !name.starts_with(' ') && !name.ends_with(' ') &&
      name.find('/') == std::string_view::npos && std::ranges::none_of(name, isControl);
  if (isFit) return std::string(name);
  return Error{"the name of a profile has 1 to 100 bytes, no slash, and no dot or blank in front"};
}

std::filesystem::path profileFile(const std::string& name) {
  const auto& standard = standardFile();
  return name == kStandardProfile ? standard : folderOf(name) / standard.filename();
}

void useProfile(const std::string& name) {
  // The standard profile is the store that nobody chose.
  if (name != kStandardProfile) UserDefaults::setStandardFile(profileFile(name));
}

std::vector<std::string> profiles() {
  std::vector<std::string> names;
  std::error_code error;
  const auto folder = standardFile().parent_path() / kFolder;
  for (auto entry = std::filesystem::directory_iterator(folder, error);
       !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (checkedProfileName(name) && name != kStandardProfile && profileExists(name))
      names.push_back(name);
  }
  std::ranges::sort(names);
  names.insert(names.begin(), std::string(kStandardProfile));
  return names;
}

bool profileExists(const std::string& name) {
  std::error_code error;
  return name == kStandardProfile || std::filesystem::exists(profileFile(name), error);
}

Outcome createProfile(const std::string& name, const std::string& from) {
  if (profileExists(name))
    return Error{"there is a profile " + quoted(name) + " already; choose another name"};
  if (!from.empty()) {
    if (auto exists = checkProfile(from); !exists) return exists;
  }
  QEVSettings::PreferenceDictionary values;
  std::error_code error;
  if (!from.empty() && std::filesystem::exists(profileFile(from), error)) {
    const auto source = UserDefaults::open(profileFile(from), UserDefaults::Access::readOnly);
    if (const auto status = source->status()) return *status;
    values = source->dictionaryRepresentation();
  }
  const auto store = UserDefaults::open(profileFile(name));
  if (const auto status = store->status()) return *status;
  // A profile begins without a history.
  store->setHistoryRules({.isKept = [] { return false; }});
  return store->applyAll(values);
}

Outcome renameProfile(const std::string& name, const std::string& newName) {
  if (name == kStandardProfile)
    return Error{"the standard profile keeps its name; copy it with profiles create --from"};
  if (auto exists = checkProfile(name); !exists) return exists;
  if (profileExists(newName))
    return Error{"there is a profile " + quoted(newName) + " already; choose another name"};
  std::error_code error;
  std::filesystem::rename(folderOf(name), folderOf(newName), error);
  return error ? Outcome(failed("renamed", name, error)) : done();
}

Outcome deleteProfile(const std::string& name) {
  if (name == kStandardProfile)
    return Error{"the standard profile cannot be deleted; empty it with prefs reset --all"};
  if (auto exists = checkProfile(name); !exists) return exists;
  std::error_code error;
  std::filesystem::remove_all(folderOf(name), error);
  return error ? Outcome(failed("deleted", name, error)) : done();
}

Outcome checkProfile(const std::string& name) {
  if (profileExists(name)) return done();
  return Error{"there is no profile " + quoted(name) +
               "; profiles list shows those that there are"};
}

}  // namespace zorvantine
