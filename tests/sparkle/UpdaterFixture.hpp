// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "sparkle/SPUStandardUpdaterController.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sparkle {

struct OfferedPackage {
  std::string address = "https://mirror/pool/zorvantine%202.0.deb";
  std::string length = "7";
  std::string signature;
};

inline std::string feedWith(const std::string& version, const OfferedPackage& package = {}) {
  return "<rss><channel><item><sparkle:version>1.0</sparkle:version></"
         "item><item><sparkle:version>" +
         version + "</sparkle:version><enclosure url=\"" + package.address + "\" length=\"" +
         package.length + "\" sparkle:edSignature=\"" + package.signature +
         "\"/></item></channel></rss>";
}

// A transport whose answers the test gives.
class SlowTransport final : public FeedTransport {
public:
  QEVSettings::Subscription fetch(const FeedRequest& request, Completion completion) override {
    requests.push_back(request);
    auto held = std::make_shared<Completion>(std::move(completion));
    pending_ = held;
    return QEVSettings::Subscription([held] { *held = nullptr; });
  }

  // Answers the last request. False when it was cancelled.
  bool answer(const foundation::Result<std::string>& answer) {
    const auto held = pending_.lock();
    const Completion completion = held ? *held : nullptr;
    if (completion) completion(answer);
    return completion != nullptr;
  }

  std::vector<FeedRequest> requests;

private:
  std::weak_ptr<Completion> pending_;
};

class ManualTimer final : public UpdateTimer {
public:
  QEVSettings::Subscription after(std::chrono::seconds delay, std::function<void()> fire) override {
    pending = Pending{delay, std::move(fire)};
    return QEVSettings::Subscription([this, id = ++last_] {
      if (id == last_) pending.reset();
    });
  }
  void fire() { std::exchange(pending, std::nullopt)->fire(); }

  struct Pending {
    std::chrono::seconds delay;
    std::function<void()> fire;
  };
  std::optional<Pending> pending;

private:
  int last_ = 0;
};

class RecordingDriver final : public SPUUserDriver {
public:
  void showUpdateFound(const FoundUpdate& update) override {
    shown.push_back("found " + update.item.displayVersion);
    package = update.package;
    problem = update.packageProblem ? update.packageProblem->message : "";
  }
  void showUpdateNotFound(const std::string& currentVersion) override {
    shown.push_back("none after " + currentVersion);
  }
  void showUpdaterError(const foundation::Error& error) override {
    shown.push_back("error " + error.message);
  }

  std::vector<std::string> shown;
  std::optional<std::filesystem::path> package;
  std::string problem;
};

class UpdaterTest : public testing::Test {
protected:
  UpdaterTest() {
    foundation::Bundle::setPreferredLanguages({"en"});
    configuration.feedAddress = "https://mirror/appcast.xml";
    configuration.applicationVersion = "1.9";
    configuration.profile = {.systemVersion = "Debian 12", .architecture = "amd64"};
    configuration.store = store.get();
    configuration.transport = transport;
    configuration.timer = timer;
    configuration.userDriver = driver;
    configuration.now = [this] { return now; };
  }

  std::unique_ptr<SPUStandardUpdaterController> start() {
    UpdaterConfiguration::setStandard(configuration);
    return std::make_unique<SPUStandardUpdaterController>(
        true, std::weak_ptr<SPUUpdaterDelegate>(), std::weak_ptr<SPUStandardUserDriverDelegate>());
  }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  std::shared_ptr<SlowTransport> transport = std::make_shared<SlowTransport>();
  std::shared_ptr<ManualTimer> timer = std::make_shared<ManualTimer>();
  std::shared_ptr<RecordingDriver> driver = std::make_shared<RecordingDriver>();
  std::chrono::system_clock::time_point now{std::chrono::sys_days{std::chrono::year{2026} / 1 / 5}};
  UpdaterConfiguration configuration;
};

}  // namespace sparkle
