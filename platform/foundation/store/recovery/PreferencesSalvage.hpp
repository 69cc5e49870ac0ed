// SPDX-License-Identifier: MIT
#pragma once

#include "store/PreferencesFile.hpp"
#include "store/recovery/DatabaseCells.hpp"
#include "store/recovery/DatabaseLog.hpp"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace foundation {

// Collects the newest change of each key from several sources. A row of a file counts only with its
// right checksum, at any place of the file.
class PreferencesSalvage {
public:
  // Adds all rows of the file and of the log next to it, if they exist; returns whether there were
  // any.
  bool addFile(const std::filesystem::path& path);
  bool addFile(const FileBytes& file, const DatabaseLog& log);

  // Set when the system refused to read a file or a log of `addFile`.
  const std::optional<Error>& problem() const { return problem_; }

  void add(PreferenceChange change);

  // The newest change of each key, removals included, in ascending order of their numbers, which
  // are all different.
  std::vector<PreferenceChange> changes() const;

  // The highest number of all changes.
  std::int64_t lastNumber() const { return lastNumber_; }

  // How many keys have a newer change that a file names and that cannot be read.
  std::size_t lostKeys() const;

  // Whether a source had this change of the key, or a newer one.
  bool has(const std::string& key, std::int64_t number) const;

private:
  void addPage(DatabaseCells& cells, std::span<const std::uint8_t> page, bool isFirstPage);
  void addRow(std::int64_t number, std::span<const std::uint8_t> record);
  void addTrace(std::span<const std::uint8_t> record);

  std::unordered_map<std::string, PreferenceChange> newest_;
  std::unordered_set<std::int64_t> readable_;
  std::map<std::int64_t, std::string> traces_;  // changes that the file names, with their keys
  std::int64_t lastNumber_ = 0;
  std::size_t rowCount_ = 0;
  std::optional<Error> problem_;
};

}  // namespace foundation
