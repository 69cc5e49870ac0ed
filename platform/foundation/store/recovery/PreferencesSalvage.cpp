// SPDX-License-Identifier: MIT
#include "store/recovery/PreferencesSalvage.hpp"

#include "store/PreferenceCell.hpp"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>
#include <variant>

namespace foundation {

namespace {

constexpr std::size_t kColumns = 5;  // change, key, type, value, sum
// No store reaches this number. A row with a higher one counts as the oldest of its key.
constexpr std::int64_t kMaximumNumber = std::int64_t{1} << 61;

std::optional<std::string> textOf(const DatabaseValue& value) {
  const auto* bytes = std::get_if<std::span<const std::uint8_t>>(&value);
  return bytes != nullptr ? std::optional<std::string>(std::in_place, bytes->begin(), bytes->end())
                          : std::nullopt;
}

}  // namespace

bool PreferencesSalvage::addFile(const std::filesystem::path& path) {
  // The log first: a page that SQLite copies into the file meanwhile is then found in one of the
  // two.
  auto log = readRawDatabaseFileIfThere(path.string() + "-wal");
  const auto file = readRawDatabaseFileIfThere(path);
  if (!file) problem_ = file.error();
  if (!log) problem_ = log.error();
  return addFile(file ? *file : FileBytes(), DatabaseLog(log ? *std::move(log) : FileBytes()));
}

bool PreferencesSalvage::addFile(const FileBytes& file, const DatabaseLog& log) {
  const std::size_t before = rowCount_;
  const auto frames = log.committed();
  std::unordered_map<std::uint32_t, const LogFrame*> newest;
  for (const LogFrame& frame : frames) newest[frame.page] = &frame;
  const auto inFile = [&](std::uint32_t number) -> std::span<const std::uint8_t> {
    const std::size_t start = (std::size_t{number} - 1) * kDatabasePageBytes;
    if (number == 0 || start + kDatabasePageBytes > file.size()) return {};
    return std::span(file).subspan(start, kDatabasePageBytes);
  };
  const auto inBoth = [&](std::uint32_t number) {
    const auto found = newest.find(number);
    return found != newest.end() ? log.page(*found->second) : inFile(number);
  };
  const std::uint64_t budget = 4 * (file.size() + frames.size() * kDatabasePageBytes);
  DatabaseCells now(inBoth, budget);
  for (const LogFrame& frame : frames) addPage(now, log.page(frame), frame.page == 1);
  // Long values continue on other pages: of the log where those are newer, or of the file.
  DatabaseCells inFileAlone(inFile, budget);
  const auto pageCount = static_cast<std::uint32_t>(file.size() / kDatabasePageBytes);
  for (std::uint32_t number = 1; number <= pageCount; ++number) {
    addPage(inFileAlone, inFile(number), number == 1);
    if (!newest.empty()) addPage(now, inFile(number), number == 1);
  }
  return rowCount_ > before;
}

void PreferencesSalvage::addPage(DatabaseCells& cells, std::span<const std::uint8_t> page,
                                 bool isFirstPage) {
  cells.read(
      page, isFirstPage,
      [this](std::int64_t number, std::span<const std::uint8_t> record) { addRow(number, record); },
      [this](std::span<const std::uint8_t> record) { addTrace(record); });
}

void PreferencesSalvage::addRow(std::int64_t number, std::span<const std::uint8_t> record) {
  const auto columns = columnsOfRecord(record);
  if (!columns || columns->size() != kColumns) return;
  auto key = textOf((*columns)[1]);
  const auto* sum = std::get_if<std::int64_t>(&(*columns)[4]);
  if (!key || sum == nullptr) return;
  if (number <= 0 || number > kMaximumNumber) number = 0;
  const auto cell = PreferenceCell::ofRecord((*columns)[2], (*columns)[3]);
  auto value = cell ? cell->value() : std::nullopt;
  if (!cell || !cell->hasSum(*sum, *key) || value.has_value() == cell->isRemoval()) {
    traces_.try_emplace(number, *std::move(key));
    return;
  }
  ++rowCount_;
  add({.key = *std::move(key), .value = std::move(value), .number = number});
}

void PreferencesSalvage::addTrace(std::span<const std::uint8_t> record) {
  const auto columns = columnsOfRecord(record);
  if (!columns || columns->size() != 2) return;
  auto key = textOf((*columns)[0]);
  const auto* number = std::get_if<std::int64_t>(&(*columns)[1]);
  if (key && number != nullptr && *number <= kMaximumNumber)
    traces_.insert_or_assign(*number, *std::move(key));
}

void PreferencesSalvage::add(PreferenceChange change) {
  readable_.insert(change.number);
  lastNumber_ = std::max(lastNumber_, change.number);
  const auto [found, isNew] = newest_.try_emplace(change.key);
  if (isNew || found->second.number < change.number) found->second = std::move(change);
}

std::vector<PreferenceChange> PreferencesSalvage::changes() const {
  std::vector<PreferenceChange> changes;
  changes.reserve(newest_.size());
  for (const auto& [key, change] : newest_) changes.push_back(change);
  std::sort(changes.begin(), changes.end(),
            [](const PreferenceChange& a, const PreferenceChange& b) {
              return a.number != b.number ? a.number < b.number : a.key < b.key;
            });
  // Two histories of a store may have used a number twice.
  std::int64_t next = lastNumber_;
  std::int64_t previous = 0;
  for (PreferenceChange& change : changes) {
    if (change.number == previous) {
      change.number = ++next;
    } else {
      previous = change.number;
    }
  }
  std::sort(
      changes.begin(), changes.end(),
      [](const PreferenceChange& a, const PreferenceChange& b) { return a.number < b.number; });
  return changes;
}

std::size_t PreferencesSalvage::lostKeys() const {
  std::set<std::string_view> lost;
  for (const auto& [number, key] : traces_) {
    if (!readable_.contains(number) && !has(key, number)) lost.insert(key);
  }
  return lost.size();
}

bool PreferencesSalvage::has(const std::string& key, std::int64_t number) const {
  const auto found = newest_.find(key);
  return found != newest_.end() && found->second.number >= number;
}

}  // namespace foundation
