// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <csignal>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

namespace foundation {

// While one lives, a write of this thread beyond the limit for the size of a file (`ulimit -f`)
// fails with EFBIG in place of ending the process by SIGXFSZ. Changes nothing for the host's other
// threads, nor its handlers. Does nothing when there was no such limit at the last `lookUpLimit`,
// which saves three system calls.
class FileLimitSignal {
public:
  FileLimitSignal();
  FileLimitSignal(const FileLimitSignal&) = delete;
  FileLimitSignal& operator=(const FileLimitSignal&) = delete;
  ~FileLimitSignal();

  // Asks the system whether the process has such a limit. Called when a store is opened. Until the
  // first call it is taken to have one. Any thread.
  static void lookUpLimit();

private:
  bool isMasked_;
  sigset_t before_{};
};

// Resets a statement however the scope is left.
class ResetAtEnd {
public:
  explicit ResetAtEnd(sqlite3_stmt* statement) : statement_(statement) {}
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;
  ~ResetAtEnd();

private:
  sqlite3_stmt* statement_;
};

// Rolls a transaction back that is still open when the scope is left.
class RollBackAtEnd {
public:
  explicit RollBackAtEnd(sqlite3* database) : database_(database) {}
  RollBackAtEnd(const RollBackAtEnd&) = delete;
  RollBackAtEnd& operator=(const RollBackAtEnd&) = delete;
  ~RollBackAtEnd();

private:
  sqlite3* database_;
};

// Which limit of the process or the system the last operation met, and what to do about it, if that
// was it.
std::optional<std::string> limitMet(sqlite3* database);

// Runs work that returns an Outcome: a lack of memory becomes its error.
template <class Work>
Outcome withinMemory(Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {
  }
  // Short enough to be kept without an allocation.
  return Error{"out of memory"};
}

// The same for work that writes to files.
template <class Work>
Outcome withinLimits(Work&& work) {
  const FileLimitSignal masked;
  return withinMemory(std::forward<Work>(work));
}

}  // namespace foundation
