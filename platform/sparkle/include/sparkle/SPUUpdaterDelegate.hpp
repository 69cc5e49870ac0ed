// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace sparkle {

class SPUUpdater;

// Influences an updater. Every operation has a default that changes nothing. Main thread only.
class SPUUpdaterDelegate {
public:
  SPUUpdaterDelegate() = default;
  SPUUpdaterDelegate(const SPUUpdaterDelegate&) = delete;
  SPUUpdaterDelegate& operator=(const SPUUpdaterDelegate&) = delete;
  virtual ~SPUUpdaterDelegate() = default;

  // The address for the next check, instead of the configured one.
  virtual std::optional<std::string> feedURLString(const SPUUpdater& /*updater*/) {
    return std::nullopt;
  }
};

// Is notified by the standard user interface. Main thread only.
class SPUStandardUserDriverDelegate {
public:
  SPUStandardUserDriverDelegate() = default;
  SPUStandardUserDriverDelegate(const SPUStandardUserDriverDelegate&) = delete;
  SPUStandardUserDriverDelegate& operator=(const SPUStandardUserDriverDelegate&) = delete;
  virtual ~SPUStandardUserDriverDelegate() = default;

  // Called right before the outcome of a check is shown.
  virtual void standardUserDriverWillShowOutcome() {}
};

}  // namespace sparkle
