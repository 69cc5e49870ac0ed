// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/PreferenceHistory.hpp"
#include "store/PreferencesTable.hpp"
#include "store/SQLiteHandles.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

// Whether to remember a write, and which keys hold secrets. Refers to the caller's predicate.
struct HistoryRequest {
  bool isKept = false;
  const std::function<bool(std::string_view key)>* isSecret = nullptr;
};

// The table of remembered changes in the database of a store.
//
//     history(change INTEGER PRIMARY KEY, time, key, before_type, before, after_type, after,
//     program, sum)
//
// `change` is the number that the row of the key got by the change, `time` milliseconds since 1970.
// A type is NULL for a key without a value. 100 added to a type says that the value was too large,
// and that its number of bytes stands in its place; 200 says that the value is a secret, and that
// NULL stands in its place. `sum` is a checksum of all other columns: a row that does not fit it
// is left out when the history is read.
//
// The first write that is remembered creates the table. Its rows have nine columns and it has no
// index, so that a recovery never takes its contents for rows of the preferences, and programs that
// do not know the table work as before. Without the table, or with another one in its place,
// writes go on and nothing is remembered. One thread at a time.
class PreferencesHistory {
public:
  // The database outlives the history.
  explicit PreferencesHistory(const Database& database) : database_(database) {}

  // Begins a transaction of `changes` writes, inside of it. Removes the history if it is not kept.
  // Returns the result code.
  int begin(const HistoryRequest& request, std::size_t changes);

  // Remembers the change that the row `row` is replaced by one with this number. The row is still
  // there; it is 0 for a new key. Returns the result code.
  int remember(const PreferenceChange& change, std::int64_t number, std::int64_t row);

  // Ends the transaction, before it is committed. Removes the oldest changes from time to time.
  int end();

  // Adds what is remembered of a key, or of every key if it is empty, the newest change first. Adds
  // nothing when there is no table. Returns the result code.
  int read(std::string_view key, std::vector<RememberedChange>& changes) const;

  // Whether all of the table can be read, and each row is as it was written. Reads all of it.
  bool isSound() const;

private:
  int prepare();
  int clear();
  int trim();
  int tryToRemember(const PreferenceChange& change, std::int64_t number, std::int64_t row);
  std::int64_t oldestTime() const;

  const Database& database_;
  Statement former_;
  Statement insert_;
  std::string program_;
  HistoryRequest request_;
  std::int64_t time_ = 0;    // of the transaction
  std::size_t leftOut_ = 0;  // changes of the transaction that would be removed at once
  std::int64_t first_ = 0;   // the numbers of the transaction's first and last change; 0 before
  std::int64_t last_ = 0;    // there is one
  bool isForeign_ = false;   // another table has the name
  bool isCleared_ = false;
};

}  // namespace foundation
