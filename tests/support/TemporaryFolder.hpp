// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace support {

// An empty folder for one test, removed with its contents. Its name is unique, because tests run in
// parallel.
class TemporaryFolder {
public:
  TemporaryFolder() {
    std::string name = (std::filesystem::path(testing::TempDir()) / "QEVSettings-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw std::filesystem::filesystem_error("no folder for a test",
                                              std::error_code(errno, std::generic_category()));
    }
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

}  // namespace support
