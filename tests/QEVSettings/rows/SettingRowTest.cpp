// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/LayeredPreferences.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "appkit/Event.hpp"
#include "appkit/Pasteboard.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"
#include "headless/Window.hpp"
#include "services/ProxyService.hpp"
#include "sparkle/SPUUpdater.hpp"
#include "support/TemporaryFolder.hpp"
#include "viewkit/EnvironmentObjects.hpp"

#include <gmock/gmock.h>

#include <unistd.h>

#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace QEVSettings {
namespace {

using headless::Element;
using headless::Window;
using QEVModels::QEVPlugInsController;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Tabs = QEVSettingsView::Tabs;
using viewkit::Role;

constexpr const char* kChanged = "Changed from the default";
constexpr const char* kTimeZone = "Packet time zone";
constexpr Tabs kAllTabs[] = {Tabs::general, Tabs::capture, Tabs::proxy, Tabs::analyze,
                             Tabs::appearance};

// The settings window of a host with the sample's analyzers and one store for everything.
class SettingRowTest : public ::testing::Test {
protected:
  SettingRowTest() {
    foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
    clearRegistry();
    zorvantine::loadAnalyzers(std::nullopt, store());
    for (auto& each : zorvantine::hostSettings()) catalogue->add(std::move(each));
    sparkle::UpdaterConfiguration configuration;
    configuration.store = &store();
    sparkle::UpdaterConfiguration::setStandard(configuration);
    parts.updater = std::make_shared<UpdaterViewModel>();
    parts.interfaces->interfaces = {{.name = "eth0", .addresses = {}, .isUp = true}};
  }
  ~SettingRowTest() override {
    window_.reset();
    clearRegistry();
  }

  static void clearRegistry() {
    auto& registry = QEVPlugInsController::sharedManager();
    while (!registry.plugInStructs().empty())
      registry.unregisterPlugIn(registry.plugInStructs().front().id);
  }

  foundation::UserDefaults& store() { return parts.store.underneath(); }

  enum class Marks { shown, leftOut };
  Window& open(Tabs tab, Marks marks = Marks::shown) { return open(tab, store(), marks); }
  Window& open(Tabs tab, PreferencesStore& preferences, Marks marks = Marks::shown) {
    window_.reset();
    writer = std::make_shared<SettingWriter>(
        preferences, SettingWriter::Doors{.appDelegate = parts.delegate, .updater = parts.updater});
    auto capture =
        std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(preferences, parts.interfaces);
    const QEVSettingsView view(
        parts.updater, parts.delegate, capture, tab,
        ProxySettingsView(std::make_shared<zorvantine::ProxyService>(preferences)),
        SettingsWindowOptions{.hasMarks = marks == Marks::shown});
    window_ = std::make_unique<Window>(
        view, viewkit::Environment{
                  .defaultStore = preferences,
                  .objects = viewkit::EnvironmentObjects().with(catalogue).with(writer)});
    return *window_;
  }

  void selectAnalyzer(const std::string& title) {
    const auto& plugIns = QEVPlugInsController::sharedManager().plugInStructs();
    for (std::size_t i = 0; i < plugIns.size(); ++i) {
      if (plugIns[i].plugInTitle == title)
        store().setInteger(static_cast<std::int64_t>(i), kAnalyzerSelectedIndex.name);
    }
  }

  static std::vector<Element> marksIn(const Window& window) {
    std::vector<Element> marks;
    for (const Element& image : window.findAll(Role::image)) {
      if (image.label() == kChanged) marks.push_back(image);
    }
    return marks;
  }

  // The titles of the context menu of the element, the disabled ones in parentheses.
  static std::vector<std::string> menuOf(Window& window, const Element& element) {
    window.openContextMenu(element);
    std::vector<std::string> titles;
    for (const auto& item : window.openMenuItems())
      titles.push_back(item.isEnabled ? item.title : "(" + item.title + ")");
    window.press(headless::Key::escape);
    return titles;
  }

  HostParts parts;
  std::shared_ptr<SettingsCatalogue> catalogue = std::make_shared<SettingsCatalogue>();
  std::shared_ptr<SettingWriter> writer;

private:
  std::unique_ptr<Window> window_;
};

// Appends what a page draws and says, in order, without the marks and what is said of them.
void appendShown(const viewkit::NodeDescription& node, std::vector<std::string>& into) {
  const auto& accessibility = node.accessibility;
  if (accessibility.role == Role::image && accessibility.label == kChanged) return;
  viewkit::NodeDescription alone = node;
  alone.children.clear();
  alone.accessibility.note.clear();
  if (accessibility.role != Role::none || !node.visual.empty())
    into.push_back(headless::textDescription(alone));
  for (const viewkit::NodeDescription& child : node.children) appendShown(child, into);
}

std::vector<std::string> shownIn(const Window& window) {
  std::vector<std::string> shown;
  appendShown(window.describe(), shown);
  return shown;
}

TEST_F(SettingRowTest, MarksMoveNothingOnAnyPage) {
  selectAnalyzer("DNS");
  for (const Tabs tab : {Tabs::general, Tabs::capture, Tabs::proxy, Tabs::appearance}) {
    SCOPED_TRACE(static_cast<int>(tab));
    const std::vector<std::string> plain = shownIn(open(tab, Marks::leftOut));
    const Window& window = open(tab);
    EXPECT_THAT(marksIn(window), IsEmpty());
    EXPECT_EQ(shownIn(window), plain);
  }
  store().setObject("Asia/Tokyo", kPrefTimezoneString.name);
  store().setBool(true, kAppearanceUseSystem.name);
  store().setBool(false, QEVCoreComponents::QEVCaptureViewModel::kPromiscuousKey);
  store().setBool(true, zorvantine::ProxyService::kInterceptsTLS);
  store().setObject(QEVCommonTools::rawValue({0.25, 0.5, 0.75, 1}), "com_velloquin_qev_dns_color");
  store().setObject(PreferenceDictionary{{"family", "Test Mono"}, {"pointSize", 11}},
                    kFontConsoleRaw.name);
  for (const Tabs tab : kAllTabs) {
    SCOPED_TRACE(static_cast<int>(tab));
    const std::vector<std::string> plain = shownIn(open(tab, Marks::leftOut));
    const Window& window = open(tab);
    EXPECT_THAT(marksIn(window), Not(IsEmpty()));
    EXPECT_EQ(shownIn(window), plain);
  }
}

TEST_F(SettingRowTest, MarkFollowsTheStoreAndStandsBeforeTheRow) {
  Window& window = open(Tabs::general);
  EXPECT_THAT(marksIn(window), IsEmpty());
  EXPECT_EQ(window.find(Role::menuButton, kTimeZone).note(), "");

  store().setObject("Asia/Tokyo", kPrefTimezoneString.name);
  window.settle();
  ASSERT_EQ(marksIn(window).size(), 1U);
  const viewkit::Rect mark = marksIn(window).front().frame();
  const viewkit::Rect label = window.findText(kTimeZone).frame();
  EXPECT_LT(mark.maxX(), label.origin.x);
  EXPECT_GT(mark.maxY(), label.origin.y);
  EXPECT_LT(mark.origin.y, label.maxY());
  EXPECT_EQ(window.find(Role::menuButton, kTimeZone).note(), kChanged);

  // A value that means the default marks nothing.
  store().removeObject(kPrefTimezoneString.name);
  store().setBool(false, sparkle::SPUUpdater::kAutomaticallyChecksKey);
  window.settle();
  EXPECT_THAT(marksIn(window), IsEmpty());
}

TEST_F(SettingRowTest, ResetBringsTheDefaultBackThroughTheWriter) {
  Window& window = open(Tabs::general);
  const std::string checks = "Automatically check for updates";
  EXPECT_THAT(menuOf(window, window.findText(checks)),
              ElementsAre("(Reset to Default (Off))", "Copy Key", "What Is This?"));
  window.click(window.find(Role::toggle, checks));
  EXPECT_EQ(marksIn(window).size(), 1U);
  EXPECT_TRUE(window.chooseFromContextMenu(window.findText(checks), "Reset to Default (Off)"));
  EXPECT_EQ(store().find(sparkle::SPUUpdater::kAutomaticallyChecksKey), nullptr);
  EXPECT_EQ(window.find(Role::toggle, checks).value(), "off");
  EXPECT_THAT(marksIn(window), IsEmpty());

  window.click(window.find(Role::button, "Light"));
  const int calls = parts.delegate->calls;
  EXPECT_TRUE(
      window.chooseFromContextMenu(window.find(Role::button, "Light"), "Reset to Default (Dark)"));
  EXPECT_EQ(store().find(kAppearanceName.name), nullptr);
  EXPECT_EQ(store().find(kAppearanceUseSystem.name), nullptr);
  EXPECT_GT(parts.delegate->calls, calls);
  EXPECT_EQ(window.find(Role::button, "Dark").isSelected(), true);
}

TEST_F(SettingRowTest, KeysAloneOpenTheMenuAndReset) {
  store().setObject("Asia/Tokyo", kPrefTimezoneString.name);
  Window& window = open(Tabs::general);
  while (!window.focused() || window.focused()->label() != kTimeZone)
    window.press(headless::Key::tab);
  window.press(headless::Key::f10, appkit::Event::shift);
  ASSERT_TRUE(window.isMenuOpen());
  window.press(headless::Key::downArrow);
  window.press(headless::Key::enter);
  EXPECT_EQ(store().find(kPrefTimezoneString.name), nullptr);
  EXPECT_EQ(window.focused()->label(), kTimeZone);
}

TEST_F(SettingRowTest, ListOfPortsIsMarkedOnlyWhenItMeansSomethingElse) {
  selectAnalyzer("DNS");
  const std::string key = "com_velloquin_qev_dns_protocols";
  Window& window = open(Tabs::analyze);
  const auto write = [&](const std::string& ports) {
    const std::string list = R"([{"id":"F0000000-0000-0000-0000-000000000001",)"
                             R"("protocolName":"DNS","protocolPorts":")" +
                             ports + R"(","sourceProtocol":3}])";
    store().setObject(PreferenceValue::Bytes(list.begin(), list.end()), key);
    window.settle();
  };
  const auto* descriptor = catalogue->current().find(key);
  ASSERT_NE(descriptor, nullptr);
  store().setObject(*descriptor->defaultValue, key);
  window.settle();
  EXPECT_THAT(marksIn(window), IsEmpty());
  write("5300");
  EXPECT_EQ(marksIn(window).size(), 1U);
  window.click(window.find(Role::button, "Reset"));
  EXPECT_THAT(marksIn(window), IsEmpty());
}

TEST_F(SettingRowTest, EveryRowOfEveryPageCopiesItsKeys) {
  std::set<std::string> copied;
  const auto copyAll = [&](Window& window) {
    for (const Role role : {Role::toggle, Role::menuButton, Role::colorWell, Role::fontPicker,
                            Role::textField, Role::button, Role::list, Role::text}) {
      const std::size_t count = window.findAll(role).size();
      for (std::size_t i = 0; i < count; ++i) {
        const Element element = window.findAll(role)[i];
        if (!window.openContextMenu(element)) continue;
        window.press(headless::Key::escape);
        window.chooseFromContextMenu(element, "Copy Key");
        std::istringstream keys(appkit::Pasteboard::general().string());
        for (std::string key; std::getline(keys, key);) copied.insert(key);
      }
    }
  };
  for (const Tabs tab : {Tabs::general, Tabs::capture, Tabs::proxy, Tabs::appearance})
    copyAll(open(tab));
  const auto count = QEVPlugInsController::sharedManager().plugInStructs().size();
  for (std::size_t i = 0; i < count; ++i) {
    store().setInteger(static_cast<std::int64_t>(i), kAnalyzerSelectedIndex.name);
    copyAll(open(Tabs::analyze));
  }
  for (const PreferenceDescriptor* each : catalogue->current().all()) {
    const bool hasRow = !each->place.tab.empty() && !each->place.row.empty();
    EXPECT_TRUE(!hasRow || copied.contains(each->key)) << each->key;
  }
}

TEST_F(SettingRowTest, PopoverExplainsTheSettingUntilEscape) {
  store().setObject("Asia/Tokyo", kPrefTimezoneString.name);
  Window& window = open(Tabs::general);
  window.chooseFromContextMenu(window.findText(kTimeZone), "What Is This?");
  const Element popover = window.find(Role::popover);
  ASSERT_TRUE(popover.exists()) << popover.problem();
  EXPECT_TRUE(popover.find(Role::heading, kTimeZone).exists());
  EXPECT_TRUE(
      popover.find(Role::alert, "The time zone in which the times of packets are shown.").exists());
  for (const char* text :
       {"Key", "com_velloquin_zorvantine_prefTimezone", "Default", "Origin", "Set by you"})
    EXPECT_TRUE(popover.findText(text).exists()) << text;
  EXPECT_FALSE(window.openContextMenu(popover.findText("Key")));

  window.chooseFromContextMenu(window.find(Role::menuButton, kTimeZone), "What Is This?");
  window.press(headless::Key::escape);
  EXPECT_FALSE(window.find(Role::popover).exists());
  EXPECT_TRUE(window.isOpen());
}

TEST_F(SettingRowTest, LockedRowOffersNoResetAndSaysWhoDecided) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can make administrators' files";
  const support::TemporaryFolder folder;
  const auto locks = folder.path() / HostIdentity::current().id / "locks.d";
  std::filesystem::create_directories(locks);
  std::ofstream(locks / "zone.json") << R"({"com_velloquin_zorvantine_prefTimezone": "UTC"})";
  store().setObject("Asia/Tokyo", kPrefTimezoneString.name);
  LayeredPreferences layers(
      store(),
      {.configurationFolders = std::vector<std::filesystem::path>{folder.path()}, .person = 12345});
  ASSERT_TRUE(layers.isLocked(kPrefTimezoneString.name));
  Window& window = open(Tabs::general, layers);
  EXPECT_EQ(marksIn(window).size(), 1U) << "the user's own value is still there";
  EXPECT_THAT(menuOf(window, window.findText(kTimeZone)), ElementsAre("Copy Key", "What Is This?"));
  window.chooseFromContextMenu(window.findText(kTimeZone), "What Is This?");
  EXPECT_TRUE(window.findText("Managed by your organization").exists());
}

}  // namespace
}  // namespace QEVSettings
