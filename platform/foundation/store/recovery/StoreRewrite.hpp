#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "store/recovery/PreferencesSalvage.hpp"
#include "store/recovery/RepairLock.hpp"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace foundation {

// Writes other contents into a damaged store, in one transaction of SQLite's that no other process
// sees half of, and of which every process that has the file open hears. The file stays the same
// file, so that nothing needs renaming.
//
// The steps, each of which leaves a store from which as much can be recovered as before:
//
// 1. The first 100 bytes of the file are put right where they keep SQLite from opening it. They
// hold no row.
// 2. SQLite is told to read the log anew, for the index that processes share may describe another
// log.
// 3. SQLite's write lock is taken. No other process writes from here on.
// 4. The file and its log are copied to NAME.recovering and put on disk.
// 5. What follows the last right transaction of the log is cut off. SQLite does not read it.
// 6. The new contents are committed to the log, put on disk, and taken over into the file.
//
// A process that is killed in between leaves a damaged store, and NAME.recovering as a further
// source for the next.
class StoreRewrite {
public:
  explicit StoreRewrite(std::filesystem::path store) : store_(std::move(store)) {}

  // Steps 1 to 6. `contents` is asked for all rows once nobody writes any more; nothing is written
  // when it fails. Needs the repair lock, and that the file exists. Says why the store was not
  // written.
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
  FileBytes formerStart_;
  std::size_t formerSize_ = 0;
  Database database_;
  QEVSettings::StorageProblem problem_ = QEVSettings::StorageProblem::failing;
};

// Unfinished copies of a damaged store and its log, of recoveries that did not come to their end.
// Fails when the system does not let them be looked up.
Result<std::vector<std::filesystem::path>> unfinishedCopiesOf(const std::filesystem::path& store);

}  // namespace foundation
