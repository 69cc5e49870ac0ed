#include "appkit/Application.hpp"

#include "appkit/Window.hpp"

#include <gtest/gtest.h>

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

TEST(KeyWindow, IsNoneWhenItGoesAway) {
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

TEST_F(AppearanceTest, ListenersHearOfAChangeOnceItIsInForce) {
  application_.setAppearance(Appearance::dark);
  EXPECT_EQ(announcements_, 1);
  EXPECT_EQ(announced_, Appearance::dark);
  EXPECT_EQ(&application_.palette(), &Palette::dark());
}

TEST_F(AppearanceTest, WhatChangesNothingToSeeIsNotAnnounced) {
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

}  // namespace
}  // namespace appkit
