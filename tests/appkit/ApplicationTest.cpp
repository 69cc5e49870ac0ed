// SPDX-License-Identifier: MIT
#include "appkit/Application.hpp"

#include "appkit/Window.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace appkit {
namespace {

class BareWindow final : public Window {
public:
  Responder* firstResponder() const override { return nullptr; }
  bool makeFirstResponder(Responder* responder) override { return responder == nullptr; }
};

TEST(KeyWindow, IsTheOneThatLastBecameKey) {
  Application& application = Application::sharedApplication();
  BareWindow first;
  BareWindow second;
  application.windowDidBecomeKey(first);
  application.windowDidBecomeKey(second);
  EXPECT_EQ(application.keyWindow(), &second);
  application.windowDidResignKey(first);
  EXPECT_EQ(application.keyWindow(), &second)
      << "a window that was not key took the keyboard from the one that is";
  application.windowDidResignKey(second);
  EXPECT_EQ(application.keyWindow(), nullptr);
}

TEST(KeyWindow, NoWindowIsKeyAfterTheKeyWindowIsDestroyed) {
  auto window = std::make_unique<BareWindow>();
  Application::sharedApplication().windowDidBecomeKey(*window);
  window.reset();
  EXPECT_EQ(Application::sharedApplication().keyWindow(), nullptr);
}

class AppearanceTest : public ::testing::Test {
protected:
  void SetUp() override {
    restore();
    announcements = 0;
  }
  void TearDown() override { restore(); }

  void restore() {
    application.setAppearance(std::nullopt);
    application.setSystemAppearance(Appearance::light);
  }

  Application& application = Application::sharedApplication();
  int announcements = 0;
  Appearance announced = Appearance::light;
  foundation::Subscription subscription =
      application.effectiveAppearanceDidChange().subscribe([this] {
        ++announcements;
        announced = application.effectiveAppearance();
      });
};

TEST_F(AppearanceTest, ChangeIsAnnouncedOnceAfterItIsInEffect) {
  application.setAppearance(Appearance::dark);
  EXPECT_EQ(announcements, 1);
  EXPECT_EQ(announced, Appearance::dark);
  EXPECT_EQ(application.palette(), Palette::dark());
}

TEST_F(AppearanceTest, ChangeWithoutEffectIsNotAnnounced) {
  application.setAppearance(Appearance::light);
  EXPECT_EQ(announcements, 0) << "light was in force already";
  application.setSystemAppearance(Appearance::dark);
  EXPECT_EQ(announcements, 0) << "the application's own choice is in force";
  application.setAppearance(std::nullopt);
  EXPECT_EQ(announcements, 1);
  EXPECT_EQ(announced, Appearance::dark) << "without a choice the desktop's counts";
}

TEST_F(AppearanceTest, FollowsTheDesktopUntilThereIsAChoice) {
  application.setSystemAppearance(Appearance::dark);
  EXPECT_EQ(announced, Appearance::dark);
  application.setAppearance(Appearance::light);
  application.setSystemAppearance(Appearance::light);
  EXPECT_EQ(announcements, 2);
  EXPECT_EQ(announced, Appearance::light);
}

// The least contrast of the color on any background of the palette.
double leastContrast(const Palette& palette, const RGBA& color) {
  return std::min({contrastBetween(color, palette.windowBackground),
                   contrastBetween(color, palette.groupBackground),
                   contrastBetween(color, palette.controlBackground)});
}

TEST_F(AppearanceTest, TextIsReadableWithStrongContrastAndWithAnyAccent) {
  EXPECT_NEAR(contrastBetween({0, 0, 0, 1}, {1, 1, 1, 1}), 21, 0.01);
  for (const auto appearance : {Appearance::light, Appearance::dark}) {
    application.setAppearance(appearance);
    const Palette normal = application.palette();
    for (const RGBA wanted : {RGBA{1, 1, 0, 1}, RGBA{0, 0, 0.4, 1}, RGBA{0.9, 0.2, 0.1, 1}}) {
      application.setSystemAccent(wanted);
      const Palette& palette = application.palette();
      EXPECT_NE(palette.accent, normal.accent);
      EXPECT_GE(leastContrast(palette, palette.accent), 4.5);
      EXPECT_GE(contrastBetween(palette.accent, palette.selectedText), 4.5);
    }
    application.setSystemAccent(std::nullopt);
    EXPECT_EQ(application.palette(), normal);

    const int before = announcements;
    application.setSystemContrast(Contrast::high);
    EXPECT_EQ(announcements, before + 1);
    const Palette& strong = application.palette();
    for (const RGBA& text : {strong.primary, strong.secondary, strong.accent, strong.systemRed})
      EXPECT_GE(leastContrast(strong, text), 7);
    application.setSystemContrast(Contrast::normal);
  }
}

}  // namespace
}  // namespace appkit
