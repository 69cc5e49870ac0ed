#include "sparkle/SPUStandardUpdaterController.hpp"

#include "foundation/Base64.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/Files.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/StringsFile.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/stat.h>

#include <array>
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

struct OfferedPackage {
  std::string address = "https://mirror/pool/zorvantine%202.0.deb";
  std::string length = "7";
  std::string signature;
};

std::string feedWith(const std::string& version, const OfferedPackage& package = {}) {
  return "<rss><channel><item><sparkle:version>1.0</sparkle:version></item><item><sparkle:version>" + version +
         "</sparkle:version><enclosure url=\"" + package.address + "\" length=\"" + package.length +
         "\" sparkle:edSignature=\"" + package.signature + "\"/></item></channel></rss>";
}

// The keys of whoever publishes updates.
class Publisher {
public:
  Publisher() {
    EXPECT_GE(sodium_init(), 0);
    crypto_sign_keypair(publicKey_.data(), secretKey_.data());
  }
  std::string publicKey() const { return foundation::base64Encoded(publicKey_); }
  std::string signature(const std::string& contents) const {
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const unsigned char*>(contents.data()),
                         contents.size(), secretKey_.data());
    return foundation::base64Encoded(signature);
  }

private:
  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> publicKey_{};
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secretKey_{};
};

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
    problem = update.packageProblem ? update.packageProblem->message : "";
  }
  void showUpdateNotFound(const std::string& currentVersion) override {
    shown.push_back("none after " + currentVersion);
  }
  void showUpdaterError(const Error& error) override { shown.push_back("error " + error.message); }

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

class PackageTest : public UpdaterTest {
protected:
  PackageTest() {
    configuration.downloadFolder = folder;
    configuration.publicKey = publisher.publicKey();
  }

  // Lets the updater check by itself, with updates to be downloaded. The number of requests tells whether the
  // package was fetched as well.
  std::size_t check(const std::string& feed, const Result<std::string>& contents) {
    now += 24h;
    transport->requests.clear();
    driver->package.reset();
    const auto controller = start();
    controller->updater().setAutomaticallyDownloadsUpdates(true);
    controller->updater().setAutomaticallyChecksForUpdates(true);
    timer->fire();
    transport->answer(feed);
    if (transport->requests.size() > 1) transport->answer(contents);
    return transport->requests.size();
  }

  bool isAnythingKept() const { return std::filesystem::exists(folder) && !std::filesystem::is_empty(folder); }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder = scratch.path() / "packages";
  const Publisher publisher;
};

TEST_F(PackageTest, WithAValidSignatureIsKeptForTheUserAlone) {
  const auto path = folder / "zorvantine_202.0.deb";
  const OfferedPackage offered{.signature = publisher.signature("package")};
  for (const bool isReplacing : {false, true}) {
    if (isReplacing) {
      std::filesystem::permissions(path, std::filesystem::perms::others_read, std::filesystem::perm_options::add);
    }
    EXPECT_EQ(check(feedWith("2.0", offered), std::string("package")), 2U);
    EXPECT_EQ(transport->requests.back().address, "https://mirror/pool/zorvantine%202.0.deb");
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, "");
    EXPECT_EQ(driver->package, path);
    EXPECT_EQ(*foundation::readFile(path), "package");
    struct stat found {};
    ASSERT_EQ(::stat(path.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0600U);
  }
}

TEST_F(PackageTest, ThatCannotBeCheckedIsNotEvenFetched) {
  const std::string valid = publisher.signature("package");
  const std::vector<std::pair<OfferedPackage, std::string>> packagesAndProblems = {
      {{.signature = ""}, "the update feed has no signature for it"},
      {{.length = "0", .signature = valid}, "the update feed does not say how long it is"},
      {{.length = "99999999", .signature = valid}, "it is longer than 64 MiB"},
      {{.address = "", .signature = valid}, ""},
  };
  for (const auto& [package, problem] : packagesAndProblems) {
    EXPECT_EQ(check(feedWith("2.0", package), std::string("package")), 1U);
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, problem);
  }
  configuration.publicKey.clear();
  EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), std::string("package")), 1U);
  EXPECT_EQ(driver->problem, "the application has no key to check its signature with");
  EXPECT_FALSE(isAnythingKept());
}

TEST_F(PackageTest, WithoutAValidSignatureIsNotKept) {
  const std::string valid = publisher.signature("package");
  const std::vector<std::pair<std::string, std::string>> signaturesAndContents = {
      {valid, "Package"},
      {publisher.signature("Package"), "package"},
      {Publisher().signature("package"), "package"},
      {valid.substr(4), "package"},
      {"no base64", "package"},
  };
  for (const auto& [signature, contents] : signaturesAndContents) {
    EXPECT_EQ(check(feedWith("2.0", {.signature = signature}), contents), 2U);
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, "its signature is not valid");
    EXPECT_FALSE(driver->package);
  }
  EXPECT_EQ(check(feedWith("2.0", {.signature = publisher.signature("short")}), std::string("short")), 2U);
  EXPECT_EQ(driver->problem, "it is not as long as the update feed says");
  EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), Error{"the server does not answer"}), 2U);
  EXPECT_EQ(driver->problem, "the server does not answer");
  for (const std::string key : {"AQID", "no base64"}) {
    configuration.publicKey = key;
    EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), std::string("package")), 2U);
    EXPECT_EQ(driver->problem, "its signature is not valid");
  }
  EXPECT_FALSE(isAnythingKept());
}

TEST_F(PackageTest, IsNeitherMoreLocalNorLessProtectedThanItsFeed) {
  const std::string feeds[] = {"file:///feed.xml", "https://mirror/feed.xml", "http://mirror/feed.xml"};
  struct Case {
    std::string address;
    bool isAllowed[3];
  };
  const std::vector<Case> cases = {
      {"file:///etc/passwd", {true, false, false}}, {"FILE:/etc/passwd", {true, false, false}},
      {"https://mirror/a.deb", {true, true, true}}, {"HTTPS://mirror/a.deb", {true, true, true}},
      {"http://mirror/a.deb", {true, false, true}}, {"ftp://mirror/a.deb", {false, false, false}},
      {"/etc/passwd", {false, false, false}},       {" file:///etc/passwd", {false, false, false}},
  };
  configuration.allowsInsecureFeed = true;
  for (const auto& [address, isAllowed] : cases) {
    for (std::size_t i = 0; i < std::size(feeds); ++i) {
      configuration.feedAddress = feeds[i];
      const OfferedPackage package{.address = address, .signature = publisher.signature("package")};
      EXPECT_EQ(check(feedWith("2.0", package), std::string("package")), isAllowed[i] ? 2U : 1U)
          << feeds[i] << " names " << address;
      EXPECT_EQ(driver->problem, isAllowed[i] ? "" : "the update feed may not name the address " + address);
    }
  }
}

TEST_F(UpdaterTest, ReasonsStandInTheTablesOfEveryLanguage) {
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
    const auto table =
        foundation::readStringsFile(QEV_SOURCE_FOLDER "/host/resources/" + language + ".lproj/Localizable.strings");
    ASSERT_TRUE(table) << table.error().message;
    for (const std::string& reason : reasons) {
      const auto entry = table->find(reason);
      ASSERT_NE(entry, table->end()) << language << ": " << reason;
      EXPECT_EQ(entry->second == reason, language == "en") << language << ": " << reason;
      EXPECT_EQ(entry->second.find("%1") != std::string::npos, reason.find("%1") != std::string::npos) << reason;
    }
  }
}

TEST_F(UpdaterTest, AFeedThatAnybodyOnTheWayCanChangeIsFetchedOnlyWhereTheHostAllowsIt) {
  for (const std::string address : {"http://mirror/appcast.xml", "HTTP://mirror/appcast.xml", "ftp://mirror/feed"}) {
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

TEST_F(UpdaterTest, SaysWhyInThePersonsLanguage) {
  const std::vector<std::pair<std::string, std::string>> addressesAndReasons = {
      {"", "die Anwendung nennt keinen Update-Feed"},
      {"file:///dev/zero", "/dev/zero ist keine Datei"},
      {"file:///dev/zero/none", "/dev/zero/none kann nicht geöffnet werden"},
      {"https://mirror", "die Adresse https://mirror ist keine file://-Adresse"},
      {"http://mirror", "die Adresse http://mirror ist weder https:// noch eine Datei auf diesem Rechner"},
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
