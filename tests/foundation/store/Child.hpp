// SPDX-License-Identifier: MIT
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <thread>
#include <utility>

namespace foundation {

inline std::ptrdiff_t threadCount() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

// Another process that does one thing. Aborts the test when a store of this process has a thread: a
// forked process would wait forever for a mutex that this thread held.
class Child {
public:
  explicit Child(const std::function<int()>& work) : id_(forkOnlyThread()) {
    if (id_ == 0) ::_exit(work());
  }
  Child(Child&& other) noexcept : id_(std::exchange(other.id_, -1)) {}
  Child& operator=(Child&&) = delete;
  ~Child() {
    if (id_ > 0) {
      kill();
      wait();
    }
  }

  pid_t id() const { return id_; }
  void kill() const { ::kill(id_, SIGKILL); }

  // Its exit code; -1 when it was killed.
  int wait() {
    int status = 0;
    ::waitpid(std::exchange(id_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

private:
  static pid_t forkOnlyThread() {
    using std::chrono::steady_clock;
    // The system lists a thread for a moment after it was joined.
    const auto end = steady_clock::now() + std::chrono::seconds(1);
    while (threadCount() > kThreadsAtStart) {
      if (steady_clock::now() > end) {
        std::fputs("a child is made while a store has a thread; use a WaitingChild\n", stderr);
        std::abort();
      }
      std::this_thread::yield();
    }
    return ::fork();
  }

  // The thread sanitizer has a thread of its own.
  static inline const std::ptrdiff_t kThreadsAtStart = threadCount();

  pid_t id_;
};

}  // namespace foundation
