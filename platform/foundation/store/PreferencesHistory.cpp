// SPDX-License-Identifier: MIT
#include "store/PreferencesHistory.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "store/PreferenceCell.hpp"
#include "store/RowChecksum.hpp"
#include "system/ProcessLimits.hpp"

#include <array>
#include <chrono>
#include <optional>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;

namespace {

// SQLite parses this whenever a store is opened. The columns have no types, because the checksum
// finds what types would refuse.
constexpr const char* kCreate =
    "CREATE TABLE IF NOT EXISTS history (change INTEGER PRIMARY KEY, time, key, before_type, "
    "before, after_type, after, program, sum)";
constexpr const char* kFormer =
    "SELECT type, value FROM preferences WHERE change = ?1 AND key = ?2";
// A recovery may have given a number out again.
constexpr const char* kInsert =
    "INSERT OR REPLACE INTO history (change, time, key, before_type, before, after_type, after, "
    "program, sum) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)";
constexpr const char* kSelect =
    "SELECT change, time, key, before_type, before, after_type, after, program, sum FROM history "
    "WHERE time >= ?1 AND (?2 IS NULL OR key = ?2) ORDER BY change DESC LIMIT ?3";
constexpr const char* kSelectRows =
    "SELECT change, time, key, before_type, before, after_type, after, program, sum FROM history";

// The oldest changes are removed after so many new ones, because each removal changes another page.
constexpr std::int64_t kTrimmingStep = 64;
constexpr std::int64_t kNotKept = 100;
constexpr std::int64_t kSecret = 200;

std::int64_t millisecondsNow() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

std::int64_t oldestKept(std::int64_t now) {
  return now - std::chrono::milliseconds(kLongestRemembered).count();
}

std::string currentProgram() {
  const auto& host = QEVSettings::HostIdentity::current();
  return host.version.empty() ? host.id : host.id + " " + host.version;
}

// What the checksum of a row covers.
struct SummedRow {
  std::int64_t number;
  std::int64_t time;
  std::string_view key;
  const PreferenceCell& before;
  const PreferenceCell& after;
  std::string_view program;
};

std::int64_t sumOf(const SummedRow& row) {
  const std::array<std::int64_t, 4> parts{row.number, row.time, row.before.sum(row.key),
                                          row.after.sum(row.program)};
  std::array<std::uint8_t, sizeof parts> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes.at(i) =
        static_cast<std::uint8_t>(static_cast<std::uint64_t>(parts.at(i / 8)) >> i % 8 * 8);
  return rowChecksum(
      {.key = {}, .type = std::nullopt, .value = std::span<const std::uint8_t>(bytes)});
}

// The cell as the history keeps it.
PreferenceCell kept(PreferenceCell cell, bool isSecret) {
  if (cell.isRemoval()) return cell;
  if (isSecret) return cell.withoutContents(kSecret, std::nullopt);
  const std::size_t bytes = cell.byteCount();
  if (bytes <= kMostRememberedBytes) return cell;
  return cell.withoutContents(kNotKept, static_cast<std::int64_t>(bytes));
}

// Nothing for a cell that no release writes.
std::optional<RememberedValue> valueOf(const PreferenceCell& cell) {
  using Kind = RememberedValue::Kind;
  const auto type = cell.type();
  if (!type) return RememberedValue();
  if (*type >= kSecret) return RememberedValue{.kind = Kind::secret};
  if (*type >= kNotKept) {
    const auto bytes = cell.integer();
    if (!bytes || *bytes < 0) return std::nullopt;
    return RememberedValue{.kind = Kind::tooLarge, .bytes = static_cast<std::uint64_t>(*bytes)};
  }
  auto value = cell.value();
  if (!value) return std::nullopt;
  return RememberedValue{.kind = Kind::kept, .value = std::move(value)};
}

std::string_view textOfColumn(sqlite3_stmt* row, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

// The change in a row of kSelect; nothing when it is not as it was written.
std::optional<RememberedChange> changeOf(sqlite3_stmt* row) {
  const std::int64_t milliseconds = sqlite3_column_int64(row, 1);
  const auto key = textOfColumn(row, 2);
  const auto program = textOfColumn(row, 7);
  const auto before = PreferenceCell::ofColumns(row, 3, 4);
  const auto after = PreferenceCell::ofColumns(row, 5, 6);
  const std::int64_t number = sqlite3_column_int64(row, 0);
  const std::int64_t sum = sumOf({number, milliseconds, key, before, after, program});
  if (sum != sqlite3_column_int64(row, 8)) return std::nullopt;
  auto valueBefore = valueOf(before);
  auto valueAfter = valueOf(after);
  if (!valueBefore || !valueAfter) return std::nullopt;
  const std::chrono::duration<double, std::milli> sinceEpoch(static_cast<double>(milliseconds));
  return RememberedChange{.number = number,
                          .time = PreferenceValue::Date(sinceEpoch),
                          .key = std::string(key),
                          .before = *std::move(valueBefore),
                          .after = *std::move(valueAfter),
                          .program = std::string(program)};
}

void bindKey(sqlite3_stmt* statement, int parameter, std::string_view key) {
  // SQLite binds NULL for a null pointer, which an empty key may have.
  sqlite3_bind_blob64(statement, parameter, key.empty() ? "" : key.data(), key.size(),
                      SQLITE_STATIC);
}

// Whether SQLite could not compile the statement, because the table is missing or is another one.
bool isOtherTable(int code) { return (code & 0xFF) == SQLITE_ERROR; }

}  // namespace

int PreferencesHistory::begin(const HistoryRequest& request, std::size_t changes) {
  request_ = request;
  first_ = last_ = 0;
  if (!request_.isKept) return isCleared_ ? SQLITE_OK : clear();
  isCleared_ = false;
  time_ = millisecondsNow();
  leftOut_ = changes > kMostRememberedChanges ? changes - kMostRememberedChanges : 0;
  if (insert_ || isForeign_) return SQLITE_OK;
  const int code = prepare();
  return code == SQLITE_OK && insert_ && oldestTime() < oldestKept(time_) ? trim() : code;
}

// Creates the table unless it is there.
int PreferencesHistory::prepare() {
  int code = sqlite3_exec(database_.get(), kCreate, nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) {
    former_ = foundation::prepare(database_, kFormer);
    insert_ = foundation::prepare(database_, kInsert);
    if (former_ && insert_) {
      program_ = currentProgram();
      return SQLITE_OK;
    }
    code = sqlite3_extended_errcode(database_.get());
  }
  insert_.reset();
  isForeign_ = isOtherTable(code);
  return isForeign_ ? SQLITE_OK : code;
}

int PreferencesHistory::remember(const PreferenceChange& change, std::int64_t number,
                                 std::int64_t row) {
  if (!request_.isKept || isForeign_ || change.key.size() > kMostRememberedBytes) return SQLITE_OK;
  if (first_ == 0) first_ = number;
  last_ = number;
  if (leftOut_ > 0) {
    --leftOut_;
    return SQLITE_OK;
  }
  int code = tryToRemember(change, number, row);
  if (!isOtherTable(code)) return code;
  // A recovery of another process has replaced the contents of the database.
  if (code = prepare(); code != SQLITE_OK || isForeign_) return code;
  code = tryToRemember(change, number, row);
  isForeign_ = isOtherTable(code);
  return isForeign_ ? SQLITE_OK : code;
}

int PreferencesHistory::tryToRemember(const PreferenceChange& change, std::int64_t number,
                                      std::int64_t row) {
  const ResetAtEnd reset(former_.get());
  const bool isSecret =
      request_.isSecret != nullptr && *request_.isSecret && (*request_.isSecret)(change.key);
  sqlite3_bind_int64(former_.get(), 1, row);
  bindKey(former_.get(), 2, change.key);
  const int found = row != 0 ? sqlite3_step(former_.get()) : SQLITE_DONE;
  if (found != SQLITE_ROW && found != SQLITE_DONE) return found;
  auto former = found == SQLITE_ROW ? std::optional(PreferenceCell::ofColumns(former_.get(), 0, 1))
                                    : PreferenceCell::ofValue(std::nullopt);
  auto cell = PreferenceCell::ofValue(change.value);
  if (!cell || !former) return SQLITE_TOOBIG;
  // A write that is repeated changes nothing.
  if (former->sum({}) == cell->sum({}) && former->type() == cell->type()) return SQLITE_OK;
  const auto before = kept(*std::move(former), isSecret);
  const auto after = kept(*std::move(cell), isSecret);
  sqlite3_stmt* const insert = insert_.get();
  sqlite3_bind_int64(insert, 1, number);
  sqlite3_bind_int64(insert, 2, time_);
  bindKey(insert, 3, change.key);
  for (int column = 4; column <= 7; ++column) sqlite3_bind_null(insert, column);
  before.bind(insert, 4, 5);
  after.bind(insert, 6, 7);
  sqlite3_bind_text64(insert, 8, program_.data(), program_.size(), SQLITE_STATIC, SQLITE_UTF8);
  sqlite3_bind_int64(insert, 9, sumOf({number, time_, change.key, before, after, program_}));
  const int code = run(insert_);
  return code == SQLITE_DONE ? SQLITE_OK : code;
}

int PreferencesHistory::end() {
  const bool isDue = first_ != 0 && (last_ / kTrimmingStep != (first_ - 1) / kTrimmingStep);
  return isDue && insert_ ? trim() : SQLITE_OK;
}

int PreferencesHistory::trim() {
  const std::string statements =
      "DELETE FROM history WHERE change < (SELECT change FROM history ORDER BY change DESC LIMIT 1 "
      "OFFSET " +
      std::to_string(kMostRememberedChanges - 1) + "); DELETE FROM history WHERE time < " +
      std::to_string(oldestKept(time_));
  return sqlite3_exec(database_.get(), statements.c_str(), nullptr, nullptr, nullptr);
}

// The time of the oldest change, or the present when there is none.
std::int64_t PreferencesHistory::oldestTime() const {
  const Statement oldest =
      foundation::prepare(database_, "SELECT time FROM history ORDER BY change LIMIT 1");
  if (!oldest || sqlite3_step(oldest.get()) != SQLITE_ROW) return time_;
  return sqlite3_column_int64(oldest.get(), 0);
}

// Overwrites what it removes, unlike other writes.
int PreferencesHistory::clear() {
  const int code = sqlite3_exec(database_.get(),
                                "PRAGMA secure_delete = ON; DELETE FROM history; "
                                "PRAGMA secure_delete = FAST",
                                nullptr, nullptr, nullptr);
  if (code != SQLITE_OK && !isOtherTable(code)) return code;
  sqlite3_exec(database_.get(), "PRAGMA secure_delete = FAST", nullptr, nullptr, nullptr);
  isCleared_ = true;
  return SQLITE_OK;
}

int PreferencesHistory::read(std::string_view key, std::vector<RememberedChange>& changes) const {
  const Statement select = foundation::prepare(database_, kSelect);
  if (!select) {
    const int code = sqlite3_extended_errcode(database_.get());
    return isOtherTable(code) ? SQLITE_OK : code;
  }
  sqlite3_bind_int64(select.get(), 1, oldestKept(millisecondsNow()));
  if (!key.empty()) bindKey(select.get(), 2, key);
  sqlite3_bind_int64(select.get(), 3, static_cast<std::int64_t>(kMostRememberedChanges));
  int code = sqlite3_step(select.get());
  for (; code == SQLITE_ROW; code = sqlite3_step(select.get())) {
    if (auto change = changeOf(select.get())) changes.push_back(*std::move(change));
  }
  return code == SQLITE_DONE ? SQLITE_OK : code;
}

bool PreferencesHistory::isSound() const {
  const Statement select = foundation::prepare(database_, kSelectRows);
  if (!select) return isOtherTable(sqlite3_extended_errcode(database_.get()));
  int code = sqlite3_step(select.get());
  while (code == SQLITE_ROW && changeOf(select.get())) code = sqlite3_step(select.get());
  const Statement check = foundation::prepare(database_, "PRAGMA integrity_check(history)");
  return code == SQLITE_DONE && check && sqlite3_step(check.get()) == SQLITE_ROW &&
         textOfColumn(check.get(), 0) == "ok";
}

}  // namespace foundation
