// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "sparkle/Appcast.hpp"

#include <filesystem>
#include <optional>
#include <string>

namespace sparkle {

// A version newer than the running one. See SPUUserDriver.
struct FoundUpdate {
  AppcastItem item;
  std::string currentVersion;
  // The package, when the updater downloaded it. Its length and signature are verified.
  std::optional<std::filesystem::path> package;
  // Why no package was kept although the user wants downloads: a clause in which "it" is the
  // package. Nothing when the feed names no package.
  std::optional<foundation::Error> packageProblem = std::nullopt;
};

// Shows the outcome of a check. Called on the main thread after the check has ended. Returns at
// once: it opens a dialog but does not run it.
//
//     void UpdateLog::showUpdateFound(const FoundUpdate& update) {
//       log_ << update.item.displayVersion << " replaces " << update.currentVersion;
//     }
class SPUUserDriver {
public:
  SPUUserDriver() = default;
  SPUUserDriver(const SPUUserDriver&) = delete;
  SPUUserDriver& operator=(const SPUUserDriver&) = delete;
  virtual ~SPUUserDriver() = default;

  virtual void showUpdateFound(const FoundUpdate& update) = 0;

  // Called only for a check that the user requested.
  virtual void showUpdateNotFound(const std::string& currentVersion) = 0;
  virtual void showUpdaterError(const foundation::Error& error) = 0;
};

}  // namespace sparkle
