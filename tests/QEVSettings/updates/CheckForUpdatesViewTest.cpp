// SPDX-License-Identifier: MIT
#include "QEVSettings/CheckForUpdatesView.hpp"

#include "SilentTransport.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace QEVSettings {
namespace {

TEST(CheckForUpdatesView, StartsOneCheckAPressAndWaitsForItsEnd) {
  foundation::Bundle::setPreferredLanguages({"en"});
  const auto store = foundation::UserDefaults::inMemory();
  const auto transport = std::make_shared<SilentTransport>();
  sparkle::UpdaterConfiguration configuration;
  configuration.feedAddress = "https://mirror/appcast.xml";
  configuration.store = store.get();
  configuration.transport = transport;
  sparkle::UpdaterConfiguration::setStandard(configuration);

  headless::Window window(CheckForUpdatesView(std::make_shared<UpdaterViewModel>()),
                          {.defaultStore = *store});
  const auto button = window.find(viewkit::Role::button, "Check for Updates…");
  ASSERT_TRUE(button.exists()) << button.problem();
  for (int check = 1; check <= 2; ++check) {
    EXPECT_TRUE(button.isEnabled());
    EXPECT_TRUE(window.click(button));
    EXPECT_EQ(transport->requests, check);
    EXPECT_FALSE(button.isEnabled());
    window.click(button);
    EXPECT_EQ(transport->requests, check) << "a disabled button does nothing";
    transport->answer(foundation::Error{"no network"});
    window.settle();
  }
  EXPECT_TRUE(button.isEnabled());
  sparkle::UpdaterConfiguration::setStandard({});
}

}  // namespace
}  // namespace QEVSettings
