// SPDX-License-Identifier: MIT
#include "QEVKonstantsKeys/Keys.hpp"
#include "SettingsWindowTest.hpp"
#include "appkit/Application.hpp"
#include "foundation/Bundle.hpp"

#include <gmock/gmock.h>

#include <filesystem>

namespace QEVSettings {
namespace {

using QEVKonstantsKeys::kAppearanceName;
using QEVKonstantsKeys::kAppearanceUseSystem;
using QEVKonstantsKeys::kPrefTimezoneString;
using support::wrote;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

constexpr const char* kChecks = "Automatically check for updates";
constexpr const char* kDownloads = "Automatically download updates";
constexpr const char* kProfile = "Include anonymous system profile";

class QEVGeneralSettingsViewTest : public SettingsWindowTest {
protected:
  ~QEVGeneralSettingsViewTest() override {
    appkit::Application::sharedApplication().setAppearance(std::nullopt);
  }

  static std::string selectedMode(const headless::Window& window) {
    std::string selected;
    for (const char* mode : {"Light", "Dark", "Auto"}) {
      if (window.find(Role::button, mode).isSelected() == true) selected += mode;
    }
    return selected;
  }
};

TEST_F(QEVGeneralSettingsViewTest, ShowsTheModeThatTheStoredValuesMean) {
  struct Case {
    std::optional<std::string> name;
    std::optional<bool> useSystem;
    const char* mode = nullptr;
  };
  for (const Case& each : {
           Case{std::nullopt, std::nullopt, "Dark"},
           Case{kAppearanceNameAqua, std::nullopt, "Light"},
           Case{kAppearanceNameAqua, true, "Auto"},
           Case{kAppearanceNameDarkAqua, false, "Dark"},
           Case{"NSAppearanceNameVibrantLight", false, "Dark"},
           Case{"no appearance at all", false, "Dark"},
       }) {
    SCOPED_TRACE(each.mode);
    store.underneath().removeObject(kAppearanceName.name);
    store.underneath().removeObject(kAppearanceUseSystem.name);
    headless::Window& window = open(Tabs::general);
    if (each.name) store.underneath().setObject(*each.name, kAppearanceName.name);
    if (each.useSystem) store.underneath().setBool(*each.useSystem, kAppearanceUseSystem.name);
    window.settle();
    EXPECT_EQ(selectedMode(window), each.mode);
  }
}

TEST_F(QEVGeneralSettingsViewTest, StoresAFixedModeBeforeItCallsTheHost) {
  headless::Window& window = open(Tabs::general);
  for (const auto& [mode, name] :
       {std::pair{"Light", kAppearanceNameAqua}, {"Dark", kAppearanceNameDarkAqua}}) {
    for (const int repetition : {1, 2}) {
      SCOPED_TRACE(mode + std::to_string(repetition));
      store.forget();
      delegate->calls = 0;
      std::vector<support::StoreOperation> changesWhenTold;
      delegate->whenCalled = [&] { changesWhenTold = store.changes(); };
      window.click(window.find(Role::button, mode));
      const auto writes =
          ElementsAre(wrote(kAppearanceUseSystem.name, false), wrote(kAppearanceName.name, name));
      EXPECT_THAT(store.changes(), writes);
      EXPECT_THAT(changesWhenTold, writes);
      EXPECT_EQ(delegate->calls, 1);
      EXPECT_EQ(selectedMode(window), mode);
    }
  }
}

TEST_F(QEVGeneralSettingsViewTest, AutoFollowsTheDesktopWithoutCallingTheHost) {
  auto& application = appkit::Application::sharedApplication();
  application.setAppearance(appkit::Appearance::light);
  store.underneath().setObject(kAppearanceNameAqua, kAppearanceName.name);
  headless::Window& window = open(Tabs::general);

  window.click(window.find(Role::button, "Auto"));
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kAppearanceUseSystem.name, true)));
  EXPECT_EQ(application.appearance(), std::nullopt);
  EXPECT_EQ(delegate->calls, 0);
  EXPECT_EQ(selectedMode(window), "Auto");
}

TEST_F(QEVGeneralSettingsViewTest, TintsTheModeUnderThePointer) {
  headless::Window& window = open(Tabs::general);
  for (const char* mode : {"Light", "Dark", "Auto"}) {
    const auto button = window.find(Role::button, mode);
    window.pointerLeft();
    window.host().counters() = {};
    window.hover(button);
    EXPECT_EQ(window.host().counters().bodiesRun, 1U) << "the button alone";
    ASSERT_EQ(tints(window).size(), 1U);
    EXPECT_TRUE(button.frame().contains(tints(window).front().origin));
  }
  window.pointerLeft();
  EXPECT_THAT(tints(window), IsEmpty());
}

TEST_F(QEVGeneralSettingsViewTest, StoresTheTextOfTheZoneThatIsPicked) {
  foundation::Bundle::setMainResourceFolder(std::filesystem::path(QEV_SOURCE_FOLDER) /
                                            "host/resources");
  headless::Window& window = open(Tabs::general);
  const auto menu = window.find(Role::menuButton, "Packet time zone");
  const auto items = window.menuItems(menu);
  ASSERT_FALSE(items.empty());

  EXPECT_TRUE(window.choose(menu, items.back().title));
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kPrefTimezoneString.name, items.back().title)));
  EXPECT_EQ(menu.value(), items.back().title);

  // An identifier that the menu shows under another name.
  store.underneath().setObject("Europe/Berlin", kPrefTimezoneString.name);
  foundation::Bundle::setPreferredLanguages({"de"});
  const auto inGerman = window.menuItems(menu);
  foundation::Bundle::setPreferredLanguages({"en"});
  const auto current = std::ranges::find(inGerman, true, &viewkit::MenuItem::isCurrent);
  ASSERT_NE(current, inGerman.end()) << "the menu opens at the current zone";
  EXPECT_THAT(current->title, testing::HasSubstr("Berlin"));
  EXPECT_NE(current->title, "Europe/Berlin");

  store.underneath().setObject("no zone that anyone lists", kPrefTimezoneString.name);
  window.settle();
  EXPECT_EQ(menu.value(), "no zone that anyone lists");
  foundation::Bundle::setMainResourceFolder(foundation::Bundle::mainBundle().folder());
}

TEST_F(QEVGeneralSettingsViewTest, EmptyStoredZoneLeavesThePopUpButton) {
  store.underneath().setObject("", kPrefTimezoneString.name);
  const headless::Window& window = open(Tabs::general);
  const auto menu = window.find(Role::menuButton, "Packet time zone");
  ASSERT_TRUE(menu.exists()) << menu.problem();
  EXPECT_EQ(menu.value(), "");
  EXPECT_EQ(std::get<viewkit::MenuControl>(*menu.content().control()).kind,
            viewkit::MenuControl::Kind::popUpButton);
  EXPECT_GT(menu.frame().size.width, 0);
}

TEST_F(QEVGeneralSettingsViewTest, MakesOneWriteForOneActionOnAnUpdateRow) {
  updaterStore.underneath().setBool(true, "sparkle_automaticallyChecks");
  headless::Window& window = open(Tabs::general);
  const auto& model = *updater;
  const auto& updates = updater->updaterController().updater();
  struct Row {
    const char* text;
    std::function<bool()> inModel;
    std::function<bool()> inUpdater;
  };
  for (const Row& row : {
           Row{kDownloads, [&] { return model.automaticallyDownloadUpdates.get(); },
               [&] { return updates.automaticallyDownloadsUpdates(); }},
           Row{kProfile, [&] { return model.sendSystemProfile.get(); },
               [&] { return updates.sendsSystemProfile(); }},
           Row{kChecks, [&] { return model.automaticallyChecksForUpdates.get(); },
               [&] { return updates.automaticallyChecksForUpdates(); }},
       }) {
    SCOPED_TRACE(row.text);
    for (const auto& target : {window.findText(row.text), window.find(Role::toggle, row.text)}) {
      updaterStore.forget();
      const bool before = row.inUpdater();
      window.click(target);
      EXPECT_EQ(row.inModel(), !before);
      EXPECT_EQ(row.inUpdater(), !before);
      EXPECT_EQ(updaterStore.changes().size(), 1U);
    }
  }
}

TEST_F(QEVGeneralSettingsViewTest, DownloadingNeedsAutomaticChecks) {
  updaterStore.underneath().setBool(true, "sparkle_automaticallyChecks");
  updaterStore.underneath().setBool(true, "sparkle_automaticallyDownloads");
  headless::Window& window = open(Tabs::general);
  const auto downloads = window.find(Role::toggle, kDownloads);
  EXPECT_TRUE(downloads.isEnabled());

  window.click(window.findText(kChecks));
  EXPECT_TRUE(updater->automaticallyDownloadUpdates);
  EXPECT_TRUE(updater->updaterController().updater().automaticallyDownloadsUpdates());
  EXPECT_FALSE(downloads.isEnabled());

  updaterStore.forget();
  window.click(window.findText(kDownloads));
  window.click(downloads);
  EXPECT_THAT(updaterStore.changes(), IsEmpty());
  EXPECT_TRUE(updater->automaticallyDownloadUpdates);
}

TEST_F(QEVGeneralSettingsViewTest, ShowsAChangeOfTheUpdatersOwnAndWritesNothing) {
  headless::Window& window = open(Tabs::general);
  updaterStore.underneath().setBool(true, "sparkle_sendsSystemProfile");
  window.settle();
  EXPECT_EQ(window.find(Role::toggle, kProfile).value(), "on");
  EXPECT_THAT(updaterStore.changes(), IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
