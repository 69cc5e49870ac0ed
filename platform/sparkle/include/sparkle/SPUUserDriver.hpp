#pragma once

#include "foundation/Result.hpp"
#include "sparkle/Appcast.hpp"

#include <filesystem>
#include <optional>
#include <string>

namespace sparkle {

// A version newer than the one that runs.
struct FoundUpdate {
  AppcastItem item;
  std::string currentVersion;
  // Where its package was put, when the updater downloaded it. Its length is the announced one and
  // its signature is valid.
  std::optional<std::filesystem::path> package;
  // Why no package was kept although the person wants updates to be downloaded; half a sentence, in
  // which "it" is the package. Nothing is said when the feed names no package.
  std::optional<foundation::Error> packageProblem = std::nullopt;
};

// Shows people the outcome of a check. Called on the main thread after the check has ended; returns
// at once and leaves the event loop to the caller, so a dialog is opened, not run.
class SPUUserDriver {
public:
  SPUUserDriver() = default;
  SPUUserDriver(const SPUUserDriver&) = delete;
  SPUUserDriver& operator=(const SPUUserDriver&) = delete;
  virtual ~SPUUserDriver() = default;

  virtual void showUpdateFound(const FoundUpdate& update) = 0;

  // The other outcomes, shown only when a person asked for the check: a check that the updater
  // makes by itself is silent about them.
  virtual void showUpdateNotFound(const std::string& currentVersion) = 0;
  virtual void showUpdaterError(const foundation::Error& error) = 0;
};

}  // namespace sparkle
