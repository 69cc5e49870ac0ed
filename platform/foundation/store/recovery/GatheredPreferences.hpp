// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "store/recovery/PreferencesSalvage.hpp"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace foundation {

// What a recovery finds: the newest change of each key in the damaged store, in the unfinished
// copies of earlier recoveries, in the good copy and in the memory of the process.
class GatheredPreferences {
public:
  GatheredPreferences(const std::filesystem::path& store, std::span<const PreferenceChange> memory);

  const std::vector<PreferenceChange>& contents() const { return contents_; }

  // Why the contents may not be all: one of the files cannot be read. The store must not be
  // rewritten then.
  const std::optional<Error>& problem() const { return problem_; }

  // The contents with a mark of the recovery behind them.
  std::vector<PreferenceChange> markedContents() const;

  // The outcome of a recovery that was caused by `damage`. Its message ends with `end`.
  QEVSettings::StoreOpening opening(const std::string& damage, const std::string& end) const;

private:
  void addGoodCopy(const std::filesystem::path& store);

  PreferencesSalvage salvage_;
  std::vector<PreferenceChange> contents_;
  std::optional<Error> problem_;
  std::size_t keys_ = 0;
  bool hasCopy_ = false;
  std::optional<std::uint32_t> lastOfCopy_;
  std::optional<std::time_t> copyTime_;  // of the good copy, when it had something newer
};

// A time in UTC.
std::string textOfTime(std::time_t time, const char* format);

}  // namespace foundation
