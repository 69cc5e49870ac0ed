#include "store/SQLiteHandles.hpp"

#include "store/watch/CommitStamp.hpp"
#include "system/ProcessLimits.hpp"

namespace foundation {

// Closing the last connection of a store takes its log over into the file.
void CloseSQLite::operator()(sqlite3* database) const {
  const FileLimitSignal masked;
  spareCutIndex(database);
  sqlite3_close_v2(database);
}

}  // namespace foundation
