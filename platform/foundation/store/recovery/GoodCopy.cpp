// SPDX-License-Identifier: MIT
#include "store/recovery/GoodCopy.hpp"

#include "store/FilePresence.hpp"
#include "store/PreferencesFile.hpp"
#include "store/StoreCreation.hpp"
#include "store/recovery/DatabaseBytes.hpp"
#include "store/recovery/PreferencesSalvage.hpp"

#include <sys/stat.h>

#include <ctime>
#include <string>
#include <system_error>

namespace foundation {

namespace {

constexpr std::size_t kHeaderBytes = 100;
// SQLite's count of schema changes, which a copy does not need.
constexpr std::size_t kCounterOffset = 40;

// Reads the new copy and checks that it has every change of the present good copy.
CopyOutcome compare(const std::filesystem::path& copy, const std::filesystem::path& goodCopy) {
  PreferencesSalvage found;
  PreferencesFile file(copy);
  if (!file.openSnapshot() ||
      !file.readAll([&](PreferenceChange change) { found.add(std::move(change)); }) ||
      !file.faults().empty()) {
    return CopyOutcome::failed;
  }
  PreferencesSalvage former;
  former.addFile(goodCopy);
  if (former.problem()) return CopyOutcome::failed;
  for (const PreferenceChange& change : former.changes()) {
    if (!found.has(change.key, change.number)) return CopyOutcome::damaged;
  }
  return CopyOutcome::done;
}

}  // namespace

std::filesystem::path goodCopyOf(const std::filesystem::path& store) {
  return store.string() + ".good";
}

Result<std::optional<std::uint32_t>> lastChangeOfGoodCopy(const std::filesystem::path& store) {
  const auto header = readRawDatabaseFileIfThere(goodCopyOf(store), kHeaderBytes);
  if (!header) return header.error();
  if (header->size() < kHeaderBytes) return std::optional<std::uint32_t>();
  return std::optional(bigEndian32(std::span(*header).subspan(kCounterOffset)) & 0x7FFFFFFFU);
}

bool isBehind(std::int64_t lastChange, std::optional<std::uint32_t> lastOfCopy) {
  const std::uint32_t ahead =
      lastOfCopy ? (*lastOfCopy - lowBitsOfChange(lastChange)) & 0x7FFFFFFFU : 0;
  return ahead != 0 && ahead < 0x40000000U;
}

bool isGoodCopyRecent(const std::filesystem::path& store, std::optional<std::uint32_t> lastOfCopy,
                      std::int64_t lastChange) {
  constexpr std::uint32_t fewChanges = 32;
  constexpr std::time_t day = 86'400;  // in seconds
  struct stat found {};
  if (!lastOfCopy || ::lstat(goodCopyOf(store).c_str(), &found) != 0) return false;
  const std::uint32_t lacking = (lowBitsOfChange(lastChange) - *lastOfCopy) & 0x7FFFFFFFU;
  // Negative when the clock went back.
  const std::time_t age = std::time(nullptr) - found.st_mtime;
  return lacking < fewChanges && age >= 0 && age < day;
}

CopyOutcome replaceGoodCopy(const std::filesystem::path& store) {
  const std::filesystem::path temporary = store.string() + ".copy";
  // Left by a process that was killed.
  removeUnsharedStore(temporary);
  removeUnsharedStore(store.string() + ".new");
  if (presenceOf(store) == Presence::absent) return CopyOutcome::done;
  const auto lastOfCopy = lastChangeOfGoodCopy(store);
  if (!lastOfCopy) return CopyOutcome::failed;
  const auto outcomeOf = [](const PreferencesFile& file) {
    return file.isDamaged() ? CopyOutcome::damaged : CopyOutcome::failed;
  };
  PreferencesFile source(store);
  if (!source.openForReading()) return outcomeOf(source);
  const auto last = source.newestChange();
  if (last && *lastOfCopy == lowBitsOfChange(*last)) return CopyOutcome::done;
  if (!source.copyTo(temporary)) return outcomeOf(source);
  auto outcome = compare(temporary, goodCopyOf(store));
  // The copy has no history. Nothing else reads all of it, and SQLite may need its pages.
  if (outcome == CopyOutcome::done && !source.isHistorySound()) outcome = CopyOutcome::damaged;
  if (outcome == CopyOutcome::done) {
    std::error_code error;
    std::filesystem::rename(temporary, goodCopyOf(store), error);
    if (error) outcome = CopyOutcome::failed;
  }
  removeUnsharedStore(temporary);
  return outcome;
}

}  // namespace foundation
