// SPDX-License-Identifier: MIT
#include "store/SQLiteHandles.hpp"

#include "store/watch/CommitStamp.hpp"
#include "system/ProcessLimits.hpp"

namespace foundation {

// SQLite writes to the file when the last connection is closed.
void CloseSQLite::operator()(sqlite3* database) const {
  const FileLimitSignal masked;
  spareCutIndex(database);
  sqlite3_close_v2(database);
}

}  // namespace foundation
