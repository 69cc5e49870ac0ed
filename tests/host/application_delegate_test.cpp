#include "ApplicationDelegate.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "appkit/Application.hpp"
#include "foundation/UserDefaults.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace {

using appkit::Appearance;
using zorvantine::ApplicationDelegate;

TEST(ApplicationDelegate, AppearanceFollowsTheStore) {
  const auto store = foundation::UserDefaults::inMemory();
  const auto& application = appkit::Application::sharedApplication();
  const ApplicationDelegate delegate(*store);
  EXPECT_EQ(application.appearance(), Appearance::dark);
  store->setObject(QEVKonstantsKeys::kAppearanceNameAqua, QEVKonstantsKeys::kAppearanceName.name);
  EXPECT_EQ(application.appearance(), Appearance::light);
  store->setBool(true, QEVKonstantsKeys::kAppearanceUseSystem.name);
  EXPECT_EQ(application.appearance(), std::nullopt);
  store->removeObject(QEVKonstantsKeys::kAppearanceUseSystem.name);
  store->setObject("no such appearance", QEVKonstantsKeys::kAppearanceName.name);
  EXPECT_EQ(application.appearance(), Appearance::dark);
}

}  // namespace
