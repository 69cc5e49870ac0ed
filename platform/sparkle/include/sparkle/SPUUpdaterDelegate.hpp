// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace sparkle {

class SPUUpdater;

// Influences an updater. Every operation has a default that changes nothing. Main thread only.
//
//     struct BetaFeed final : SPUUpdaterDelegate {
//       std::optional<std::string> feedURLString(const SPUUpdater& /*updater*/) override {
//         return "https://updates.example.com/beta.xml";
//       }
//     };
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
//
//     struct WindowRaiser final : SPUStandardUserDriverDelegate {
//       void standardUserDriverWillShowOutcome() override { raiseMainWindow(); }
//     };
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
