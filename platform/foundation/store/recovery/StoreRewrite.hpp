// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "store/SQLiteFileUse.hpp"
#include "store/recovery/PreferencesSalvage.hpp"
#include "store/recovery/RepairLock.hpp"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace foundation {

// Writes new contents into a damaged store in one transaction of SQLite. No other process sees half
// of it, and every process that has the file open notices it. The file stays the same file, so that
// no rename is needed.
//
// Each step leaves a store from which at least as much can be recovered as before:
//
// 1. The first 100 bytes of the file are corrected if SQLite could not open the file with them.
// They hold no row.
// 2. SQLite is made to read the log again, because the shared index may describe another log.
// 3. SQLite's write lock is taken. No other process writes from here on.
// 4. The file and its log are copied to NAME.recovering and written to the disk.
// 5. The frames after the last valid transaction of the log are cut off. SQLite does not read them.
// 6. The new contents are committed to the log, written to the disk, and copied into the file.
//
// A process that is killed between two steps leaves a damaged store, and NAME.recovering as another
// source for the next recovery.
class StoreRewrite {
public:
  explicit StoreRewrite(std::filesystem::path store) : store_(std::move(store)) {}

  // Runs the steps. `contents` is called after step 4; when it fails, nothing is written. Needs the
  // repair lock, and that the file exists. Returns why the store was not written.
  using Contents = std::function<Result<std::vector<PreferenceChange>>()>;
  std::optional<Error> run(Patience patience, const Contents& contents);
  QEVSettings::StorageProblem problem() const { return problem_; }

private:
  bool openWithRightHeader(sqlite3* example);
  void takeLogOverAtClose(bool isAllowed) const;
  int forgetLogIndex();
  bool keepDamaged() const;
  bool cutLog() const;
  Error fail(const char* what, int code);

  std::filesystem::path store_;
  SQLiteFileUse use_;  // before the database, which is closed first
  FileBytes formerStart_;
  std::size_t formerSize_ = 0;
  Database database_;
  QEVSettings::StorageProblem problem_ = QEVSettings::StorageProblem::failing;
};

// The copies NAME.recovering of recoveries that were not completed. Fails when the system refuses
// to look them up.
Result<std::vector<std::filesystem::path>> unfinishedCopiesOf(const std::filesystem::path& store);

}  // namespace foundation
