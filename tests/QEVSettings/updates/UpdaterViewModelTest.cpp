// SPDX-License-Identifier: MIT
#include "QEVSettings/UpdaterViewModel.hpp"

#include "SilentTransport.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>
#include <vector>

namespace QEVSettings {
namespace {

constexpr std::string_view kChecksKey = "sparkle_automaticallyChecks";
constexpr std::string_view kDownloadsKey = "sparkle_automaticallyDownloads";
constexpr std::string_view kProfileKey = "sparkle_sendsSystemProfile";

class UpdaterViewModelTest : public testing::Test {
protected:
  UpdaterViewModelTest() {
    sparkle::UpdaterConfiguration configuration;
    configuration.feedAddress = "https://mirror/appcast.xml";
    configuration.store = store.get();
    configuration.transport = transport;
    sparkle::UpdaterConfiguration::setStandard(configuration);
  }
  ~UpdaterViewModelTest() override { sparkle::UpdaterConfiguration::setStandard({}); }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  std::shared_ptr<SilentTransport> transport = std::make_shared<SilentTransport>();
};

TEST_F(UpdaterViewModelTest, MirrorsTheUpdaterFromTheStart) {
  store->setBool(true, kChecksKey);
  store->setBool(true, kProfileKey);
  const UpdaterViewModel model;
  EXPECT_TRUE(model.canCheckForUpdates);
  EXPECT_TRUE(model.automaticallyChecksForUpdates);
  EXPECT_FALSE(model.automaticallyDownloadUpdates);
  EXPECT_TRUE(model.sendSystemProfile);
}

TEST_F(UpdaterViewModelTest, FollowsTheUpdaterAndWritesNothingBack) {
  UpdaterViewModel model;
  int writes = 0;
  std::vector<bool> valuesWhenAnnounced;
  const auto writing = store->observeAll([&](std::string_view) { ++writes; });
  const auto announcing = model.objectWillChange().subscribe(
      [&] { valuesWhenAnnounced.push_back(model.automaticallyDownloadUpdates); });

  store->setBool(true, kDownloadsKey);
  EXPECT_TRUE(model.automaticallyDownloadUpdates);
  EXPECT_EQ(valuesWhenAnnounced, std::vector{false})
      << "a change is announced once, before it is made";
  EXPECT_EQ(writes, 1);

  model.sendSystemProfile = true;
  EXPECT_FALSE(model.updaterController().updater().sendsSystemProfile())
      << "handing it on is the editor's part";
  EXPECT_EQ(writes, 1);
}

TEST_F(UpdaterViewModelTest, ChecksOnALaterTurnAndOneAtATime) {
  auto model = std::make_unique<UpdaterViewModel>();
  auto& queue = foundation::MainQueue::mainQueue();

  model->checkForUpdates();
  EXPECT_EQ(transport->requests, 0);
  EXPECT_TRUE(model->canCheckForUpdates);
  queue.drainAll();
  EXPECT_EQ(transport->requests, 1);
  EXPECT_FALSE(model->canCheckForUpdates);

  model->checkForUpdates();
  queue.drainAll();
  EXPECT_EQ(transport->requests, 1);

  transport->answer(foundation::Error{"no network"});
  EXPECT_TRUE(model->canCheckForUpdates);

  model->checkForUpdates();
  model.reset();
  queue.drainAll();
  EXPECT_EQ(transport->requests, 1);
}

}  // namespace
}  // namespace QEVSettings
