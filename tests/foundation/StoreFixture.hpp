#pragma once

#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace foundation {

// A folder for stores, removed after the test, and what they had to say.
class StoreTest : public testing::Test {
protected:
  void SetUp() override {
    setDiagnosticSink([this](std::string_view line) { said.emplace_back(line); });
  }
  void TearDown() override {
    setDiagnosticSink({});
    MainQueue::mainQueue().drainAll();
  }

  std::unique_ptr<UserDefaults> open() const { return UserDefaults::open(path); }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder = scratch.path();
  const std::filesystem::path path = folder / "preferences.sqlite";
  std::vector<std::string> said;
};

// Runs the main queue until the condition holds; says whether it came to hold.
inline bool waitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    MainQueue::mainQueue().wait(std::chrono::milliseconds(10));
    MainQueue::mainQueue().drain();
  }
  return true;
}

// Another process that does one thing. It must not have been forked while this process had a store with a
// thread of its own.
class Child {
public:
  explicit Child(const std::function<int()>& work) : id_(::fork()) {
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
  pid_t id_;
};

}  // namespace foundation
