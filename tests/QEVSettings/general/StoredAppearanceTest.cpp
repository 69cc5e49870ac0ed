// SPDX-License-Identifier: MIT
#include "QEVSettings/StoredAppearance.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "appkit/Application.hpp"
#include "foundation/UserDefaults.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace {

using appkit::Appearance;
using QEVSettings::StoredAppearance;

TEST(StoredAppearance, MakesTheApplicationLookAsTheStoreSays) {
  const auto store = foundation::UserDefaults::inMemory();
  const auto& application = appkit::Application::sharedApplication();
  const StoredAppearance delegate(*store);
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
