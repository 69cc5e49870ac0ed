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

// Puts together what can be had of a damaged store: the newest change of each key in any of the
// sources. A row of a file counts only with its right checksum, wherever in the file it stands.
class PreferencesSalvage {
public:
  // All rows of the file and of the log next to it, if they exist; says whether there were any.
  bool addFile(const std::filesystem::path& path);
  bool addFile(const FileBytes& file, const DatabaseLog& log);

  // Why something is missing: the system did not let the file or the log of an `addFile` be read.
  const std::optional<Error>& problem() const { return problem_; }

  void add(PreferenceChange change);

  // The newest change of each key, removals included, in the order of their numbers, of which no
  // two are equal.
  std::vector<PreferenceChange> changes() const;

  // The highest number of a change that was met.
  std::int64_t lastNumber() const { return lastNumber_; }

  // How many keys have a newer change than the one found: the file names it, but it cannot be read.
  std::size_t lostKeys() const;

  // Whether a source held this change or a newer one of the key.
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
