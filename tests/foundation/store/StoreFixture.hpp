// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace foundation {

// A folder for stores, which is removed after the test, and the lines of diagnostics.
class StoreTest : public testing::Test {
protected:
  // `inner` is the name of a folder in the test's folder, which the test may move or remove.
  explicit StoreTest(const std::filesystem::path& inner = {}) : folder(scratch.path() / inner) {}

  void SetUp() override {
    setDiagnosticSink([this](std::string_view line) { said.emplace_back(line); });
  }
  void TearDown() override {
    setDiagnosticSink({});
    MainQueue::mainQueue().drainAll();
  }

  std::unique_ptr<UserDefaults> open() const { return UserDefaults::open(path); }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder;
  const std::filesystem::path path = folder / "preferences.sqlite";
  std::vector<std::string> said;
};

// The number of repetitions. Those of scripts/test --soak take minutes.
inline int runs(int usual, int soak) { return std::getenv("QEV_SOAK") != nullptr ? soak : usual; }

inline std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void overwrite(const std::filesystem::path& path, std::string_view contents) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
}

// The mode and the contents of each file in the folder, by name.
inline std::map<std::string, std::string> filesIn(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const auto mode = static_cast<unsigned>(entry.symlink_status().permissions());
    files[entry.path().filename().string()] = std::to_string(mode) + " " + contentsOf(entry.path());
  }
  return files;
}

// Becomes another user if the tests run as root, for whom permissions do not count.
inline void loseRootIn(const std::filesystem::path& folder) {
  constexpr uid_t nobody = 65534;
  if (::geteuid() != 0) return;
  if (::chown(folder.c_str(), nobody, nobody) != 0 || ::setgid(nobody) != 0 ||
      ::setuid(nobody) != 0)
    ::_exit(99);
}

// Runs the main queue until the condition holds. Returns false after 20 s without that.
inline bool waitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    MainQueue::mainQueue().wait(std::chrono::milliseconds(10));
    MainQueue::mainQueue().drain();
  }
  return true;
}

}  // namespace foundation
