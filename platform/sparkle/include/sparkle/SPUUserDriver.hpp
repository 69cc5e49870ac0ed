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
  // Where its package was put, when the updater downloaded it. Its length is the announced one; its signature
  // was not examined, which is up to whoever installs it.
  std::optional<std::filesystem::path> package;
};

// Shows people the outcome of a check. Called on the main thread after the check has ended; returns at once
// and leaves the event loop to the caller, so a dialog is opened, not run.
class SPUUserDriver {
public:
  SPUUserDriver() = default;
  SPUUserDriver(const SPUUserDriver&) = delete;
  SPUUserDriver& operator=(const SPUUserDriver&) = delete;
  virtual ~SPUUserDriver() = default;

  virtual void showUpdateFound(const FoundUpdate& update) = 0;

  // The other outcomes, shown only when a person asked for the check: a check that the updater makes by
  // itself is silent about them.
  virtual void showUpdateNotFound(const std::string& currentVersion) = 0;
  virtual void showUpdaterError(const foundation::Error& error) = 0;
};

}  // namespace sparkle
