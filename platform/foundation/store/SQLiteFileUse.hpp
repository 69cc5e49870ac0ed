// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace foundation {

// Lives while SQLite has, or is about to have, the file of a store open in this process. When any
// descriptor of a file is closed, the system drops all locks that the process holds on that file.
// So SQLite's file layer, which keeps such descriptors open, must read the files of stores then.
class SQLiteFileUse {
public:
  SQLiteFileUse();
  SQLiteFileUse(const SQLiteFileUse&) = delete;
  SQLiteFileUse& operator=(const SQLiteFileUse&) = delete;
  ~SQLiteFileUse();
};

// Calls `read` if no SQLiteFileUse lives, and lets none begin meanwhile; returns whether it did.
// Any thread.
bool readWhileUnused(const std::function<void()>& read);

}  // namespace foundation
