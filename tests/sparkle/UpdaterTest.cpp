// SPDX-License-Identifier: MIT
#include "UpdaterFixture.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/StringsFile.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace sparkle {
namespace {

using namespace std::chrono_literals;
using foundation::Error;
using foundation::MainQueue;
using foundation::ObservingOptions;
using foundation::Result;

constexpr std::string_view kChecksKey = "sparkle_automaticallyChecks";

TEST_F(UpdaterTest, OutcomeOfRequestedCheckIsShown) {
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
      ObservingOptions::initial | ObservingOptions::newValue,
      [&](bool can) { canCheck.push_back(can); });
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

TEST_F(UpdaterTest, CheckNeedsStartAndAddress) {
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

TEST_F(UpdaterTest, CheckThatNeverRanIsNotRecorded) {
  const std::string address = std::exchange(configuration.feedAddress, "");
  auto controller = start();
  controller->updater().setAutomaticallyChecksForUpdates(true);
  controller->checkForUpdates(nullptr);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(timer->pending);
    EXPECT_EQ(timer->pending->delay, 1h);
    timer->fire();
  }
  EXPECT_TRUE(transport->requests.empty());
  EXPECT_FALSE(store->objectForKey("sparkle_lastCheck"));

  controller.reset();
  configuration.feedAddress = address;
  controller = start();
  EXPECT_EQ(timer->pending->delay, 0s);
  timer->fire();
  transport->answer(Error{"no network"});
  EXPECT_TRUE(store->objectForKey("sparkle_lastCheck")) << "one that ran and failed counts";
}

TEST_F(UpdaterTest, SystemProfileIsSentOnlyWhenAllowed) {
  const auto controller = start();
  controller->checkForUpdates(nullptr);
  EXPECT_TRUE(transport->requests.back().headers.empty());
  transport->answer(feedWith("1"));

  controller->updater().setSendsSystemProfile(true);
  controller->checkForUpdates(nullptr);
  EXPECT_EQ(transport->requests.back().headers,
            (std::map<std::string, std::string>{{"X-System-Version", "Debian 12"},
                                                {"X-System-Architecture", "amd64"}}));
}

TEST_F(UpdaterTest, SettingsFollowStore) {
  store->setBool(true, "sparkle_automaticallyDownloads");
  const auto controller = start();
  SPUUpdater& updater = controller->updater();
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_TRUE(updater.automaticallyDownloadsUpdates());

  std::vector<bool> told;
  const auto observation = updater.observeAutomaticallyChecksForUpdates(
      ObservingOptions::initial | ObservingOptions::newValue,
      [&](bool value) { told.push_back(value); });
  updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_TRUE(store->boolForKey(kChecksKey));
  store->removeObject(kChecksKey);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_EQ(told, (std::vector{false, true, false}));
}

TEST_F(UpdaterTest, ScheduledCheckRunsDailyAndShowsOnlyNewVersions) {
  const auto controller = start();
  EXPECT_FALSE(timer->pending);
  controller->updater().setAutomaticallyChecksForUpdates(true);
  ASSERT_TRUE(timer->pending);
  EXPECT_EQ(timer->pending->delay, 0s);
  timer->fire();
  transport->answer(Error{"no network"});
  EXPECT_TRUE(driver->shown.empty());

  // The machine slept for most of the day. The timer fires late and is set for the remaining time.
  ASSERT_TRUE(timer->pending);
  now += 23h + 30min;
  timer->fire();
  EXPECT_EQ(transport->requests.size(), 1U);
  ASSERT_TRUE(timer->pending);
  EXPECT_EQ(timer->pending->delay, 30min);
  now += 30min;
  timer->fire();
  transport->answer(feedWith("2.0"));
  EXPECT_EQ(driver->shown, std::vector<std::string>{"found 2.0"});

  controller->updater().setAutomaticallyChecksForUpdates(false);
  EXPECT_FALSE(timer->pending);

  // A last check in the future was recorded by a wrong clock.
  now -= 24h * 400;
  controller->updater().setAutomaticallyChecksForUpdates(true);
  EXPECT_EQ(timer->pending->delay, 0s);
}

TEST_F(UpdaterTest, ReasonsAreInStringTableOfEveryLanguage) {
  const std::vector<std::string> reasons = {
      "the address %1 is neither https:// nor a file on this machine",
      "the update feed may not name the address %1",
      "the update feed does not say how long it is",
      "it is longer than 64 MiB",
      "the application has no key to check its signature with",
      "the update feed has no signature for it",
      "it is not as long as the update feed says",
      "its signature is not valid",
      "it cannot be saved in %1",
  };
  for (const std::string language : {"en", "de", "fr", "es", "ja", "zh-Hans", "ar"}) {
    const auto table = foundation::readStringsFile(QEV_SOURCE_FOLDER "/host/resources/" + language +
                                                   ".lproj/Localizable.strings");
    ASSERT_TRUE(table) << table.error().message;
    for (const std::string& reason : reasons) {
      const auto entry = table->find(reason);
      ASSERT_NE(entry, table->end()) << language << ": " << reason;
      EXPECT_EQ(entry->second == reason, language == "en") << language << ": " << reason;
      EXPECT_EQ(entry->second.find("%1") != std::string::npos,
                reason.find("%1") != std::string::npos)
          << reason;
    }
  }
}

TEST_F(UpdaterTest, InsecureFeedIsFetchedOnlyWhenHostAllowsIt) {
  for (const std::string address :
       {"http://mirror/appcast.xml", "HTTP://mirror/appcast.xml", "ftp://mirror/feed"}) {
    for (const bool isAllowed : {false, true}) {
      configuration.feedAddress = address;
      configuration.allowsInsecureFeed = isAllowed;
      transport->requests.clear();
      driver->shown.clear();
      const auto controller = start();
      controller->checkForUpdates(nullptr);
      EXPECT_EQ(transport->requests.size(), isAllowed ? 1U : 0U) << address;
      EXPECT_EQ(driver->shown.size(), isAllowed ? 0U : 1U) << address;
    }
  }
}

TEST_F(UpdaterTest, FailedCheckGivesReasonInLanguageOfPerson) {
  const std::vector<std::pair<std::string, std::string>> addressesAndReasons = {
      {"", "die Anwendung nennt keinen Update-Feed"},
      {"file:///dev/zero", "/dev/zero ist keine Datei"},
      {"file:///dev/zero/none", "/dev/zero/none kann nicht geöffnet werden"},
      {"https://mirror", "die Adresse https://mirror ist keine file://-Adresse"},
      {"http://mirror",
       "die Adresse http://mirror ist weder https:// noch eine Datei auf diesem Rechner"},
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

TEST_F(UpdaterTest, DestroyedUpdaterCancelsCheck) {
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
