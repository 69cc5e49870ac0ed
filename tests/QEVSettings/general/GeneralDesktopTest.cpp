// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/StoredAppearance.hpp"
#include "appkit/Application.hpp"
#include "qt/WindowFixture.hpp"

#include <gmock/gmock.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

namespace QEVSettings {
namespace {

using QEVKonstantsKeys::kAppearanceName;
using QEVKonstantsKeys::kAppearanceUseSystem;
using QEVKonstantsKeys::kPrefTimezoneString;
using support::wrote;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kChecks = "Automatically check for updates";
constexpr const char* kDownloads = "Automatically download updates";
constexpr const char* kProfile = "Include anonymous system profile";

// The General page in a real window, over a file that other processes may write to.
class GeneralDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    appkit::Application::sharedApplication().setSystemAppearance(appkit::Appearance::light);
    host.emplace(*preferences);
    delegate->whenCalled = [this] { host->setupAppearanceFromUserDefaults(); };
    useStore(*preferences);
    open(settingsView(QEVSettingsView::Tabs::general));
  }

  std::string selectedMode() const {
    std::string modes;
    for (const char* mode : {"Light", "Dark", "Auto"}) {
      if (find(QAccessible::PushButton, mode).state().selected) modes += mode;
    }
    return modes;
  }

  bool looksDark() const { return topLevel().grab().toImage().pixelColor(3, 3).lightness() < 128; }

  // In a process of its own.
  void set(std::string_view key, const QString& type, const QString& value) const {
    const QString name = QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
    EXPECT_EQ(QProcess::execute(QEV_PROGRAM, {"--store", file, "prefs", "set", name, type, value}),
              0);
  }

  QTemporaryDir folder;
  const QString file = folder.filePath("preferences.sqlite");
  std::unique_ptr<foundation::UserDefaults> preferences =
      foundation::UserDefaults::open(file.toStdString());
  std::optional<StoredAppearance> host;
};

TEST_F(GeneralDesktopTest, AppearanceChangesInTheOpenWindow) {
  EXPECT_EQ(selectedMode(), "Dark");
  EXPECT_TRUE(looksDark());

  click(find(QAccessible::PushButton, "Light"));
  EXPECT_EQ(preferences->stringForKey(kAppearanceName.name), kAppearanceNameAqua);
  EXPECT_EQ(delegate->calls, 1);
  EXPECT_EQ(selectedMode(), "Light");
  EXPECT_FALSE(looksDark());

  widget(QAccessible::PushButton, "Dark").setFocus();
  press(Qt::Key_Space);
  EXPECT_TRUE(looksDark());

  click(find(QAccessible::PushButton, "Auto"));
  EXPECT_TRUE(preferences->boolForKey(kAppearanceUseSystem.name));
  EXPECT_FALSE(looksDark());
  appkit::Application::sharedApplication().setSystemAppearance(appkit::Appearance::dark);
  settle();
  EXPECT_TRUE(looksDark());
}

TEST_F(GeneralDesktopTest, ChangeOfAnotherProcessIsShown) {
  const auto zone = [this] {
    return find(QAccessible::ButtonMenu, "Packet time zone").text(QAccessible::Value);
  };
  ASSERT_NE(zone(), "Asia/Tokyo");
  set(kPrefTimezoneString.name, "--string", "Asia/Tokyo");
  EXPECT_TRUE(QTest::qWaitFor([&] { return zone() == "Asia/Tokyo"; }, 20'000));

  set(kAppearanceName.name, "--string", kAppearanceNameAqua);
  EXPECT_TRUE(QTest::qWaitFor([&] { return selectedMode() == "Light" && !looksDark(); }, 20'000));
  set(kAppearanceUseSystem.name, "--bool", "true");
  EXPECT_TRUE(QTest::qWaitFor([&] { return selectedMode() == "Auto"; }, 20'000));
}

TEST_F(GeneralDesktopTest, UpdateOptionsAreSwitchedByTheirTextAndTheirSwitch) {
  EXPECT_FALSE(widget(QAccessible::CheckBox, kDownloads).isEnabled());
  click(find(QAccessible::StaticText, kDownloads));
  click(find(QAccessible::CheckBox, kDownloads));
  EXPECT_THAT(updaterStore.changes(), IsEmpty());

  click(find(QAccessible::StaticText, kChecks));
  EXPECT_THAT(updaterStore.changes(), ElementsAre(wrote("sparkle_automaticallyChecks", true)));
  EXPECT_TRUE(widget(QAccessible::CheckBox, kDownloads).isEnabled());
  updaterStore.forget();

  click(find(QAccessible::CheckBox, kDownloads));
  click(find(QAccessible::StaticText, kProfile));
  click(find(QAccessible::CheckBox, kProfile));
  EXPECT_THAT(updaterStore.changes(), ElementsAre(wrote("sparkle_automaticallyDownloads", true),
                                                  wrote("sparkle_sendsSystemProfile", true),
                                                  wrote("sparkle_sendsSystemProfile", false)));
  EXPECT_TRUE(find(QAccessible::CheckBox, kDownloads).state().checked);
  EXPECT_FALSE(find(QAccessible::CheckBox, kProfile).state().checked);
}

}  // namespace
}  // namespace QEVSettings
