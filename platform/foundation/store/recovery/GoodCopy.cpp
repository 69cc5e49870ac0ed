#include "store/recovery/GoodCopy.hpp"

#include "store/PreferencesFile.hpp"
#include "store/StoreCreation.hpp"
#include "store/recovery/DatabaseBytes.hpp"
#include "store/recovery/PreferencesSalvage.hpp"

#include <sys/stat.h>

#include <string>
#include <system_error>

namespace foundation {

namespace {

constexpr std::size_t kHeaderBytes = 100;
// SQLite's count of changes of the schema, of which a copy has none.
constexpr std::size_t kCounterOffset = 40;

// Reads the copy to its end and compares it with what the good copy has.
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
  for (const PreferenceChange& change : former.changes()) {
    if (!found.has(change.key, change.number)) return CopyOutcome::damaged;
  }
  return CopyOutcome::done;
}

}  // namespace

std::filesystem::path goodCopyOf(const std::filesystem::path& store) {
  return store.string() + ".good";
}

std::optional<std::uint32_t> lastChangeOfGoodCopy(const std::filesystem::path& store) {
  const auto header = readRawDatabaseFile(goodCopyOf(store), kHeaderBytes);
  if (!header || header->size() < kHeaderBytes) return std::nullopt;
  return bigEndian32(std::span(*header).subspan(kCounterOffset)) & 0x7FFFFFFFU;
}

bool isBehind(std::int64_t lastChange, std::optional<std::uint32_t> lastOfCopy) {
  const std::uint32_t ahead =
      lastOfCopy ? (*lastOfCopy - lowBitsOfChange(lastChange)) & 0x7FFFFFFFU : 0;
  return ahead != 0 && ahead < 0x40000000U;
}

CopyOutcome replaceGoodCopy(const std::filesystem::path& store) {
  const std::filesystem::path temporary = store.string() + ".copy";
  // What a kill left.
  removeUnsharedStore(temporary);
  removeUnsharedStore(store.string() + ".new");
  std::error_code error;
  if (!std::filesystem::exists(store, error)) return CopyOutcome::done;
  const auto outcomeOf = [](const PreferencesFile& file) {
    return file.isDamaged() ? CopyOutcome::damaged : CopyOutcome::failed;
  };
  PreferencesFile source(store);
  if (!source.openForReading()) return outcomeOf(source);
  const auto last = source.newestChange();
  if (last && lastChangeOfGoodCopy(store) == lowBitsOfChange(*last)) return CopyOutcome::done;
  if (!source.copyTo(temporary)) return outcomeOf(source);
  auto outcome = compare(temporary, goodCopyOf(store));
  if (outcome == CopyOutcome::done) {
    std::filesystem::rename(temporary, goodCopyOf(store), error);
    if (error) outcome = CopyOutcome::failed;
  }
  removeUnsharedStore(temporary);
  return outcome;
}

}  // namespace foundation
