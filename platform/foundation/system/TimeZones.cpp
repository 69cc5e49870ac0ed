// SPDX-License-Identifier: MIT
#include "foundation/TimeZones.hpp"

#include "foundation/Files.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace foundation {

namespace {

constexpr std::string_view kUniversalTime = "UTC";

std::filesystem::path database() {
  const char* chosen = std::getenv("TZDIR");
  return chosen != nullptr && *chosen != '\0' ? chosen : "/usr/share/zoneinfo";
}

bool isZone(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::is_regular_file(file, error);
}

// The files below the database, each by the name that its zone would have. Listing the folders is
// faster than testing hundreds of names one by one.
std::unordered_set<std::string> filesBelow(const std::filesystem::path& folder) {
  std::unordered_set<std::string> files;
  const std::size_t prefix = (folder / "").native().size();
  std::error_code error;
  for (std::filesystem::recursive_directory_iterator entry(folder, error), end;
       !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().native().substr(prefix);
    std::error_code unknown;
    if (name == "posix" || name == "right") {
      entry.disable_recursion_pending();  // copies of the same zones
    } else if (entry->is_regular_file(unknown)) {
      files.insert(std::move(name));
    }
  }
  return files;
}

// The words of a line.
std::vector<std::string_view> words(std::string_view line) {
  std::vector<std::string_view> words;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find_first_of(" \t\r"), line.size());
    if (end > 0) words.push_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return words;
}

// The names in the database's own list, where a line "Z NAME …" begins a zone and "L TARGET NAME"
// defines an alias.
std::vector<std::string> namesOfList(const std::filesystem::path& folder,
                                     const std::unordered_set<std::string>& files) {
  const auto list = readFile(folder / "tzdata.zi");
  std::vector<std::string> names;
  if (!list) return names;
  std::string_view text = *list;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.starts_with("Z ") && !line.starts_with("L ")) continue;
    const auto parts = words(line);
    const std::size_t nameAt = line.front() == 'Z' ? 1 : 2;
    if (parts.size() > nameAt) names.emplace_back(parts[nameAt]);
  }
  // The list may name zones whose files a package leaves out.
  std::erase_if(names, [&](const std::string& name) { return !files.contains(name); });
  return names;
}

std::vector<std::string> namesOfFiles(const std::filesystem::path& folder,
                                      const std::unordered_set<std::string>& files) {
  std::vector<std::string> names;
  for (const std::string& name : files) {
    if (name == "localtime" || name == "posixrules") continue;
    const auto header = readFile(folder / name, 1 << 20);
    if (header && header->starts_with("TZif")) names.push_back(name);
  }
  return names;
}

// The name of the zone whose file this is, below any folder named zoneinfo.
std::optional<std::string> nameOfFile(const std::filesystem::path& file) {
  const std::string path = file.lexically_normal().string();
  constexpr std::string_view folder = "/zoneinfo/";
  const std::size_t found = path.rfind(folder);
  if (found == std::string::npos) return std::nullopt;
  return path.substr(found + folder.size());
}

std::optional<std::string> nameOfVariable() {
  const char* variable = std::getenv("TZ");
  std::string_view text = variable != nullptr ? variable : "";
  if (text.starts_with(':')) text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  if (text.front() == '/') return nameOfFile(std::filesystem::path(text));
  // TZ may also hold a rule such as CET-1CEST, which has no name.
  return isZone(database() / text) ? std::optional(std::string(text)) : std::nullopt;
}

std::optional<std::string> nameOfLink() {
  std::filesystem::path link = "/etc/localtime";
  // Followed link by link, because the file of an alias may be a link to the file of its zone.
  constexpr int mostLinks = 8;
  for (int i = 0; i < mostLinks; ++i) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(link, error);
    if (error) return std::nullopt;
    link = link.parent_path() / target;
    if (auto name = nameOfFile(link)) return name;
  }
  return std::nullopt;
}

std::optional<std::string> nameOfFileOfName() {
  const auto text = readFile("/etc/timezone", 4096);
  if (!text) return std::nullopt;
  const auto parts = words(std::string_view(*text).substr(0, text->find('\n')));
  return !parts.empty() && isZone(database() / parts.front())
             ? std::optional(std::string(parts.front()))
             : std::nullopt;
}

}  // namespace

std::vector<std::string> knownTimeZoneNames() {
  const auto folder = database();
  const auto files = filesBelow(folder);
  auto names = namesOfList(folder, files);
  if (names.empty()) names = namesOfFiles(folder, files);
  std::erase(names, "Factory");  // the zone of a machine that was never set up
  if (names.empty()) names.emplace_back(kUniversalTime);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

std::string currentTimeZoneName() {
  for (const auto& source : {nameOfVariable, nameOfLink, nameOfFileOfName}) {
    if (auto name = source()) return *name;
  }
  return std::string(kUniversalTime);
}

}  // namespace foundation
