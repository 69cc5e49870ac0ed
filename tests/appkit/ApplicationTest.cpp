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
  AppearanceTest() {
    restore();
    announcements_ = 0;
  }
  ~AppearanceTest() override { restore(); }

  void restore() {
    application_.setAppearance(std::nullopt);
    application_.setSystemAppearance(Appearance::light);
  }

  Application& application_ = Application::sharedApplication();
  int announcements_ = 0;
  Appearance announced_ = Appearance::light;
  foundation::Subscription subscription_ =
      application_.effectiveAppearanceDidChange().subscribe([this] {
        ++announcements_;
        announced_ = application_.effectiveAppearance();
      });
};

TEST_F(AppearanceTest, ChangeIsAnnouncedOnceAfterItIsInEffect) {
  application_.setAppearance(Appearance::dark);
  EXPECT_EQ(announcements_, 1);
  EXPECT_EQ(announced_, Appearance::dark);
  EXPECT_EQ(application_.palette(), Palette::dark());
}

TEST_F(AppearanceTest, ChangeWithoutEffectIsNotAnnounced) {
  application_.setAppearance(Appearance::light);
  EXPECT_EQ(announcements_, 0) << "light was in force already";
  application_.setSystemAppearance(Appearance::dark);
  EXPECT_EQ(announcements_, 0) << "the application's own choice is in force";
  application_.setAppearance(std::nullopt);
  EXPECT_EQ(announcements_, 1);
  EXPECT_EQ(announced_, Appearance::dark) << "without a choice the desktop's counts";
}

TEST_F(AppearanceTest, FollowsTheDesktopUntilThereIsAChoice) {
  application_.setSystemAppearance(Appearance::dark);
  EXPECT_EQ(announced_, Appearance::dark);
  application_.setAppearance(Appearance::light);
  application_.setSystemAppearance(Appearance::light);
  EXPECT_EQ(announcements_, 2);
  EXPECT_EQ(announced_, Appearance::light);
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
    application_.setAppearance(appearance);
    const Palette normal = application_.palette();
    for (const RGBA wanted : {RGBA{1, 1, 0, 1}, RGBA{0, 0, 0.4, 1}, RGBA{0.9, 0.2, 0.1, 1}}) {
      application_.setSystemAccent(wanted);
      const Palette& palette = application_.palette();
      EXPECT_NE(palette.accent, normal.accent);
      EXPECT_GE(leastContrast(palette, palette.accent), 4.5);
      EXPECT_GE(contrastBetween(palette.accent, palette.selectedText), 4.5);
    }
    application_.setSystemAccent(std::nullopt);
    EXPECT_EQ(application_.palette(), normal);

    const int before = announcements_;
    application_.setSystemContrast(Contrast::high);
    EXPECT_EQ(announcements_, before + 1);
    const Palette& strong = application_.palette();
    for (const RGBA& text : {strong.primary, strong.secondary, strong.accent, strong.systemRed})
      EXPECT_GE(leastContrast(strong, text), 7);
    application_.setSystemContrast(Contrast::normal);
  }
}

}  // namespace
}  // namespace appkit
