#include "sparkle/SPUStandardUpdaterController.hpp"

#include "foundation/Bundle.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sparkle {
namespace {

using namespace std::chrono_literals;
using foundation::Error;
using foundation::MainQueue;
using foundation::ObservingOptions;
using foundation::Result;
using QEVSettings::Subscription;

constexpr std::string_view kChecksKey = "sparkle_automaticallyChecks";

std::string feedWith(const std::string& version) {
  return "<rss><channel><item><sparkle:version>1.0</sparkle:version></item><item><sparkle:version>" + version +
         R"(</sparkle:version><enclosure url="http://mirror/pool/zorvantine%20)" + version +
         R"(.deb" length="7"/></item></channel></rss>)";
}

// Answers when the test says so.
class SlowTransport final : public FeedTransport {
public:
  Subscription fetch(const FeedRequest& request, Completion completion) override {
    requests.push_back(request);
    auto held = std::make_shared<Completion>(std::move(completion));
    pending_ = held;
    return Subscription([held] { *held = nullptr; });
  }

  // Whether someone still waits.
  bool answer(const Result<std::string>& answer) {
    const auto held = pending_.lock();
    const Completion completion = held ? *held : nullptr;
    if (completion) completion(answer);
    return completion != nullptr;
  }

  std::vector<FeedRequest> requests;

private:
  std::weak_ptr<Completion> pending_;
};

class StoppedTimer final : public UpdateTimer {
public:
  Subscription after(std::chrono::seconds delay, std::function<void()> fire) override {
    wish = Wish{delay, std::move(fire)};
    return Subscription([this, id = ++last_] {
      if (id == last_) wish.reset();
    });
  }
  void fire() { std::exchange(wish, std::nullopt)->fire(); }

  struct Wish {
    std::chrono::seconds delay;
    std::function<void()> fire;
  };
  std::optional<Wish> wish;

private:
  int last_ = 0;
};

class RecordingDriver final : public SPUUserDriver {
public:
  void showUpdateFound(const FoundUpdate& update) override {
    shown.push_back("found " + update.item.displayVersion);
    package = update.package;
  }
  void showUpdateNotFound(const std::string& currentVersion) override {
    shown.push_back("none after " + currentVersion);
  }
  void showUpdaterError(const Error& error) override { shown.push_back("error " + error.message); }

  std::vector<std::string> shown;
  std::optional<std::filesystem::path> package;
};

class UpdaterTest : public testing::Test {
protected:
  UpdaterTest() {
    foundation::Bundle::setPreferredLanguages({"en"});
    configuration.feedAddress = "http://mirror/appcast.xml";
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
    return std::make_unique<SPUStandardUpdaterController>(true, std::weak_ptr<SPUUpdaterDelegate>(),
                                                          std::weak_ptr<SPUStandardUserDriverDelegate>());
  }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  std::shared_ptr<SlowTransport> transport = std::make_shared<SlowTransport>();
  std::shared_ptr<StoppedTimer> timer = std::make_shared<StoppedTimer>();
  std::shared_ptr<RecordingDriver> driver = std::make_shared<RecordingDriver>();
  std::chrono::system_clock::time_point now{std::chrono::sys_days{std::chrono::year{2026} / 1 / 5}};
  UpdaterConfiguration configuration;
};

TEST_F(UpdaterTest, ShowsTheOutcomeOfARequestedCheck) {
  const std::vector<std::pair<Result<std::string>, std::string>> answersAndOutcomes = {
      {feedWith("1.10"), "found 1.10"},
      {feedWith("1.9.0"), "none after 1.9"},
      {std::string("<rss><channel/></rss>"), "none after 1.9"},
      {std::string("<rss>"), "error the update feed is damaged in line 1: no element found"},
      {Error{"the server does not answer"}, "error the server does not answer"},
  };
  const auto controller = start();
  std::vector<bool> canCheck;
  const auto observation = controller->updater().observeCanCheckForUpdates(
      ObservingOptions::initial | ObservingOptions::newValue, [&](bool can) { canCheck.push_back(can); });
  for (const auto& [answer, outcome] : answersAndOutcomes) {
    canCheck.clear();
    driver->shown.clear();
    controller->checkForUpdates(nullptr);
    controller->checkForUpdates(nullptr);
    EXPECT_FALSE(controller->updater().canCheckForUpdates());
    EXPECT_TRUE(driver->shown.empty());
    EXPECT_TRUE(transport->answer(answer));
    EXPECT_EQ(driver->shown, std::vector{outcome});
    EXPECT_EQ(canCheck, (std::vector{false, true}));
  }
  EXPECT_EQ(transport->requests.size(), answersAndOutcomes.size());
}

TEST_F(UpdaterTest, CannotCheckBeforeItStartsNorWithoutAnAddress) {
  SPUUpdater updater(configuration);
  updater.checkForUpdates();
  EXPECT_FALSE(updater.canCheckForUpdates());
  EXPECT_TRUE(transport->requests.empty());

  configuration.feedAddress.clear();
  const auto controller = start();
  controller->checkForUpdates(nullptr);
  EXPECT_EQ(driver->shown, std::vector<std::string>{"error the application names no update feed"});
  EXPECT_TRUE(controller->updater().canCheckForUpdates());
}

TEST_F(UpdaterTest, WhatNeverRanIsNoLastCheck) {
  const std::string address = std::exchange(configuration.feedAddress, "");
  auto controller = start();
  controller->updater().setAutomaticallyChecksForUpdates(true);
  controller->checkForUpdates(nullptr);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(timer->wish);
    EXPECT_EQ(timer->wish->delay, 1h);
    timer->fire();
  }
  EXPECT_TRUE(transport->requests.empty());
  EXPECT_FALSE(store->objectForKey("sparkle_lastCheck"));

  controller.reset();
  configuration.feedAddress = address;
  controller = start();
  EXPECT_EQ(timer->wish->delay, 0s);
  timer->fire();
  transport->answer(Error{"no network"});
  EXPECT_TRUE(store->objectForKey("sparkle_lastCheck")) << "one that ran and failed counts";
}

TEST_F(UpdaterTest, TheProfileIsSentOnlyWhenAllowed) {
  const auto controller = start();
  controller->checkForUpdates(nullptr);
  EXPECT_TRUE(transport->requests.back().headers.empty());
  transport->answer(feedWith("1"));

  controller->updater().setSendsSystemProfile(true);
  controller->checkForUpdates(nullptr);
  EXPECT_EQ(
      transport->requests.back().headers,
      (std::map<std::string, std::string>{{"X-System-Version", "Debian 12"}, {"X-System-Architecture", "amd64"}}));
}

TEST_F(UpdaterTest, SettingsFollowTheStoreWhoeverWrites) {
  store->setBool(true, "sparkle_automaticallyDownloads");
  const auto controller = start();
  SPUUpdater& updater = controller->updater();
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_TRUE(updater.automaticallyDownloadsUpdates());

  std::vector<bool> told;
  const auto observation = updater.observeAutomaticallyChecksForUpdates(
      ObservingOptions::initial | ObservingOptions::newValue, [&](bool value) { told.push_back(value); });
  updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_TRUE(store->boolForKey(kChecksKey));
  store->removeObject(kChecksKey);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_EQ(told, (std::vector{false, true, false}));
}

TEST_F(UpdaterTest, ChecksByItselfOnceADayAndSpeaksOnlyOfNewVersions) {
  const auto controller = start();
  EXPECT_FALSE(timer->wish);
  controller->updater().setAutomaticallyChecksForUpdates(true);
  ASSERT_TRUE(timer->wish);
  EXPECT_EQ(timer->wish->delay, 0s);
  timer->fire();
  transport->answer(Error{"no network"});
  EXPECT_TRUE(driver->shown.empty());

  // The machine slept for most of the day: the timer fires late, and again at the hour that is left.
  ASSERT_TRUE(timer->wish);
  now += 23h + 30min;
  timer->fire();
  EXPECT_EQ(transport->requests.size(), 1U);
  ASSERT_TRUE(timer->wish);
  EXPECT_EQ(timer->wish->delay, 30min);
  now += 30min;
  timer->fire();
  transport->answer(feedWith("2.0"));
  EXPECT_EQ(driver->shown, std::vector<std::string>{"found 2.0"});

  controller->updater().setAutomaticallyChecksForUpdates(false);
  EXPECT_FALSE(timer->wish);

  // A last check in the future came from a wrong clock.
  now -= 24h * 400;
  controller->updater().setAutomaticallyChecksForUpdates(true);
  EXPECT_EQ(timer->wish->delay, 0s);
}

TEST_F(UpdaterTest, AScheduledCheckDownloadsThePackageWhereThatIsWanted) {
  const support::TemporaryFolder scratch;
  const auto folder = scratch.path() / "packages";
  configuration.downloadFolder = folder;
  const auto controller = start();
  controller->updater().setAutomaticallyDownloadsUpdates(true);
  controller->updater().setAutomaticallyChecksForUpdates(true);

  timer->fire();
  transport->answer(feedWith("2.0"));
  EXPECT_EQ(transport->requests.back().address, "http://mirror/pool/zorvantine%202.0.deb");
  EXPECT_FALSE(controller->updater().canCheckForUpdates());
  transport->answer(std::string("package"));
  ASSERT_EQ(driver->shown, std::vector<std::string>{"found 2.0"});
  ASSERT_TRUE(driver->package);
  EXPECT_EQ(*driver->package, folder / "zorvantine_202.0.deb");
  std::ifstream file(*driver->package);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "package");

  // One that is not as long as announced is not kept, and the version is still told of.
  now += 24h;
  timer->fire();
  transport->answer(feedWith("3.0"));
  transport->answer(std::string("short"));
  EXPECT_EQ(driver->shown.back(), "found 3.0");
  EXPECT_FALSE(driver->package);
  EXPECT_FALSE(std::filesystem::exists(folder / "zorvantine_203.0.deb"));
}

TEST_F(UpdaterTest, SaysWhyInThePersonsLanguage) {
  const std::vector<std::pair<std::string, std::string>> addressesAndReasons = {
      {"", "die Anwendung nennt keinen Update-Feed"},
      {"file:///dev/zero", "/dev/zero ist keine Datei"},
      {"file:///dev/zero/none", "/dev/zero/none kann nicht geöffnet werden"},
      {"ftp://mirror", "die Adresse ftp://mirror ist keine file://-Adresse"},
  };
  foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
  foundation::Bundle::setPreferredLanguages({"de"});
  configuration.transport = nullptr;
  for (const auto& [address, reason] : addressesAndReasons) {
    configuration.feedAddress = address;
    driver->shown.clear();
    const auto controller = start();
    controller->checkForUpdates(nullptr);
    MainQueue::mainQueue().drainAll();
    EXPECT_EQ(driver->shown, std::vector<std::string>{"error " + reason});
  }
  foundation::Bundle::setMainResourceFolder(foundation::Bundle::mainBundle().folder());
}

TEST_F(UpdaterTest, GoingAwayGivesTheCheckUp) {
  auto controller = start();
  controller->checkForUpdates(nullptr);
  controller.reset();
  EXPECT_FALSE(transport->answer(feedWith("2.0")));
  EXPECT_TRUE(driver->shown.empty());
}

TEST_F(UpdaterTest, ReadsFeedsFromFiles) {
  const support::TemporaryFolder folder;
  const auto path = folder.path() / "a feed.xml";
  std::ofstream(path) << feedWith("2.0");
  configuration.transport = nullptr;
  configuration.feedAddress = "file://" + folder.path().string() + "/a%20feed.xml";
  auto controller = start();
  controller->checkForUpdates(nullptr);
  EXPECT_FALSE(controller->updater().canCheckForUpdates());
  MainQueue::mainQueue().drainAll();
  EXPECT_EQ(driver->shown, std::vector<std::string>{"found 2.0"});

  std::filesystem::resize_file(path, kLongestFeed + 1);
  const std::vector<std::pair<std::string, std::string>> addressesAndReasons = {
      {configuration.feedAddress, "longer than"},
      {"file:///dev/zero", "is no file"},
      {"file:///no/such/feed", "no/such/feed"},
      {"https://mirror/appcast.xml", "not a file:// address"},
  };
  for (const auto& [address, reason] : addressesAndReasons) {
    configuration.feedAddress = address;
    driver->shown.clear();
    controller = start();
    controller->checkForUpdates(nullptr);
    MainQueue::mainQueue().drainAll();
    ASSERT_EQ(driver->shown.size(), 1U);
    EXPECT_NE(driver->shown.front().find(reason), std::string::npos) << driver->shown.front();
  }
}

}  // namespace
}  // namespace sparkle
