// SPDX-License-Identifier: MIT
#include "system/ProcessLimits.hpp"

#include <sqlite3.h>
#include <sys/resource.h>

#include <atomic>
#include <cerrno>
#include <ctime>

namespace foundation {

namespace {

std::atomic<bool> hasFileLimit = true;

sigset_t fileLimitSignal() {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, SIGXFSZ);
  return signals;
}

}  // namespace

void FileLimitSignal::lookUpLimit() {
  rlimit limit{};
  hasFileLimit = ::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

FileLimitSignal::FileLimitSignal() : isMasked_(hasFileLimit) {
  if (!isMasked_) return;
  const sigset_t own = fileLimitSignal();
  ::pthread_sigmask(SIG_BLOCK, &own, &before_);
}

FileLimitSignal::~FileLimitSignal() {
  // Where the host blocked it before, the signal is the host's.
  if (!isMasked_ || ::sigismember(&before_, SIGXFSZ) != 0) return;
  const sigset_t own = fileLimitSignal();
  const timespec atOnce{};
  while (::sigtimedwait(&own, nullptr, &atOnce) == SIGXFSZ) {
  }
  ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

ResetAtEnd::~ResetAtEnd() { sqlite3_reset(statement_); }

RollBackAtEnd::~RollBackAtEnd() {
  if (sqlite3_get_autocommit(database_) == 0)
    sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
}

std::optional<std::string> limitMet(sqlite3* database) {
  const int code = sqlite3_errcode(database) & 0xFF;
  if (code == SQLITE_NOMEM) return "there is not enough memory); close other programs";
  if (code != SQLITE_IOERR && code != SQLITE_CANTOPEN) return std::nullopt;
  switch (sqlite3_system_errno(database)) {
    case EFBIG:
      return "this process may not write files of that size); raise its limit (ulimit -f)";
    case EMFILE: return "this process may not open more files); raise its limit (ulimit -n)";
    case ENFILE: return "the system can open no more files); close other programs";
    case ENOMEM: return "there is not enough memory); close other programs";
    default: return std::nullopt;
  }
}

}  // namespace foundation
