// SPDX-License-Identifier: MIT
#include "foundation/TrustedFiles.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>

namespace foundation {

namespace {

constexpr unsigned kRoot = 0;

// Who may have made a file that counts.
struct Owners {
  unsigned owner;   // of the folder
  unsigned person;  // who runs the program

  bool include(unsigned user) const { return user == kRoot || (user == owner && user != person); }
};

// Whether users other than the owner may write to it. In a sticky folder they may not replace the
// entries of others.
bool isOpenToOthers(const struct stat& found) {
  const bool isOpen =
      (found.st_mode & S_IWOTH) != 0 || ((found.st_mode & S_IWGRP) != 0 && found.st_gid != kRoot);
  const bool isSticky = S_ISDIR(found.st_mode) && (found.st_mode & S_ISVTX) != 0;
  return isOpen && !isSticky;
}

// Why a path cannot be trusted: the first part of it that somebody else can change.
std::optional<std::string> problemOf(const std::filesystem::path& path, const Owners& owners) {
  std::filesystem::path part;
  for (const auto& name : path) {
    part /= name;
    struct stat found {};
    if (::lstat(part.c_str(), &found) != 0) return part.string() + " cannot be looked at";
    if (!owners.include(found.st_uid))
      return part.string() + " does not belong to root; give it to root";
    if (!S_ISLNK(found.st_mode) && isOpenToOthers(found))
      return part.string() + " may be written by others; take that right away";
  }
  return std::nullopt;
}

// Nothing when the path leads nowhere.
std::optional<unsigned> ownerOf(const std::filesystem::path& path) {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 ? std::optional(found.st_uid) : std::nullopt;
}

// The problem of a path as it is named, and of where its links lead.
std::optional<std::string> problemOfBoth(const std::filesystem::path& named, const Owners& owners) {
  std::error_code error;
  const auto real = std::filesystem::canonical(named, error);
  if (error) return named.string() + " cannot be looked at";
  auto problem = problemOf(real, owners);
  return problem ? problem : problemOf(named, owners);
}

bool isLeftOut(const std::string& name) { return name.starts_with('.') || name.ends_with('~'); }

}  // namespace

std::vector<std::filesystem::path> systemConfigurationFolders() {
  const char* const text = std::getenv("XDG_CONFIG_DIRS");
  std::string_view rest = text != nullptr ? text : "";
  if (rest.empty()) rest = "/etc/xdg";
  std::vector<std::filesystem::path> folders;
  std::set<std::filesystem::path> seen;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    const auto folder = std::filesystem::path(rest.substr(0, end)).lexically_normal();
    if (folder.is_absolute() && seen.insert(folder).second) folders.push_back(folder);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return folders;
}

unsigned currentPerson() { return ::getuid(); }

TrustedFiles trustedFiles(const std::filesystem::path& folder, unsigned person) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(folder, error);
  if (!std::filesystem::exists(status)) return {};
  TrustedFiles trusted;
  const Owners owners{.owner = ownerOf(folder).value_or(kRoot), .person = person};
  if (const auto problem = problemOfBoth(folder, owners)) {
    trusted.problems.push_back("the folder " + folder.string() + " is not used: " + *problem);
    return trusted;
  }
  std::vector<std::filesystem::path> files;
  for (auto entry = std::filesystem::directory_iterator(folder, error);
       !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (!isLeftOut(entry->path().filename().string())) files.push_back(entry->path());
  }
  if (error) {
    trusted.problems.push_back("the folder " + folder.string() + " is not used: it cannot be read");
    return trusted;
  }
  std::ranges::sort(files);
  for (const auto& file : files) {
    const bool isFile = std::filesystem::is_regular_file(file, error);
    const auto problem = isFile ? problemOfBoth(file, owners) : std::optional("it is not a file");
    if (problem) {
      trusted.problems.push_back("the file " + file.string() + " is not used: " + *problem);
    } else {
      trusted.files.push_back(file);
    }
  }
  return trusted;
}

}  // namespace foundation
