#pragma once

#include "PreferencesFile.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace foundation {

// A store's file keeps company: next to it stand its last good copy (NAME.good), and what had to be set
// aside because it was damaged (NAME.damaged-2026-11-24-101500).
std::filesystem::path goodCopyOf(const std::filesystem::path& store);
std::vector<std::filesystem::path> setAsideOf(const std::filesystem::path& store);

struct OpenedPreferences {
  std::unique_ptr<PreferencesFile> file;   // none when the store cannot be opened
  std::vector<PreferenceChange> contents;  // all that could be read, whether there is a file or not
  std::optional<Error> error;              // why there is no file
  std::optional<std::string> notice;       // what had to be done to get there
};

// How long to wait for a process that holds the file.
enum class Patience { none, aMoment };

// Opens a store and reads it to its end. A file that is damaged, or something else than a store, is set aside
// first, and the last good copy takes its place, or an empty store where there is none.
OpenedPreferences openPreferences(const std::filesystem::path& store, Patience patience = Patience::aMoment);

// Makes the good copy anew when the store changed since. A store that cannot be read to its end leaves the
// copy as it is. Any thread; takes as long as reading and writing the whole store.
Outcome keepGoodCopy(const std::filesystem::path& store);

// Whether `keepGoodCopy` has something to do.
bool isGoodCopyStale(const std::filesystem::path& store);

}  // namespace foundation
