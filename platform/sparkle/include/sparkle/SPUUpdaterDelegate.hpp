#pragma once

#include <optional>
#include <string>

namespace sparkle {

class SPUUpdater;

// Takes part in what an updater does. Every operation has a default that changes nothing. Main
// thread.
class SPUUpdaterDelegate {
public:
  SPUUpdaterDelegate() = default;
  SPUUpdaterDelegate(const SPUUpdaterDelegate&) = delete;
  SPUUpdaterDelegate& operator=(const SPUUpdaterDelegate&) = delete;
  virtual ~SPUUpdaterDelegate() = default;

  // Another address for the next check than the configured one.
  virtual std::optional<std::string> feedURLString(const SPUUpdater& /*updater*/) {
    return std::nullopt;
  }
};

// Hears from the standard user interface. Main thread.
class SPUStandardUserDriverDelegate {
public:
  SPUStandardUserDriverDelegate() = default;
  SPUStandardUserDriverDelegate(const SPUStandardUserDriverDelegate&) = delete;
  SPUStandardUserDriverDelegate& operator=(const SPUStandardUserDriverDelegate&) = delete;
  virtual ~SPUStandardUserDriverDelegate() = default;

  // Right before the outcome of a check is shown.
  virtual void standardUserDriverWillShowOutcome() {}
};

}  // namespace sparkle
