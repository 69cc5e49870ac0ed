// SPDX-License-Identifier: MIT
#include "PortsEditorTest.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVModels/QEVPlugInsController.hpp"

#include <gmock/gmock.h>

#include <utility>

namespace QEVSettings {
namespace {

using headless::Key;
using QEVDependencies::QEVError;
using QEVDependencies::QEVNetworkProtocolList;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

// The ports editor while others write its list.
class PortsEditorFollowingTest : public PortsEditorTest {
protected:
  static std::vector<std::string> shownNames(const headless::Window& window) {
    std::vector<std::string> names;
    for (const auto& each : window.findAll(Role::menuButton)) {
      if (each.label() == "Name") names.push_back(each.value());
    }
    return names;
  }
};

TEST_F(PortsEditorFollowingTest, RowsShowWhatIsStoredElsewhereAndLeavingWritesNothing) {
  headless::Window& window = show();
  storeElsewhere([](QEVNetworkProtocolList& list) {
    list[0]->protocolPorts = "81";
    list[0]->sourceProtocol = 2;
    list[1]->protocolName = "Other";
    list.insert(list.begin() + 1, protocol("New", "7", 1));
  });
  window.settle();
  EXPECT_THAT(shownNames(window), ElementsAre("HTTP", "New", "Other"));
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "7", "3128,8080"));
  EXPECT_EQ(menu(window, "Source", 0).value(), "UDP");

  storeElsewhere([](QEVNetworkProtocolList& list) { list.erase(list.begin()); });
  window.settle();
  EXPECT_THAT(shownNames(window), ElementsAre("New", "Other"));
  window.selectTab("Fonts");
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(storedPorts(), ElementsAre("New 7", "Other 3128,8080"));
}

TEST_F(PortsEditorFollowingTest, UncommittedTextStaysAndTheRestOfItsRowFollows) {
  headless::Window& window = show();
  type(window, 0, "90");
  storeElsewhere([](QEVNetworkProtocolList& list) {
    std::swap(list[0], list[1]);
    list[1]->protocolPorts = "81";
    list[1]->protocolName = "Proxy";
  });
  window.settle();
  EXPECT_THAT(shownPorts(window), ElementsAre("3128,8080", "90"));
  EXPECT_THAT(shownNames(window), ElementsAre("Proxy", "Proxy"));
  window.type("9");
  EXPECT_THAT(shownPorts(window), ElementsAre("3128,8080", "909")) << "the field keeps the focus";
  window.selectTab("Fonts");
  EXPECT_THAT(journal, ElementsAre("replace Proxy 81 1 by Proxy 909 1, ports", "store", "notify 9",
                                   "notify 3"));
  EXPECT_THAT(storedPorts(), ElementsAre("Proxy 3128,8080", "Proxy 909"));
}

TEST_F(PortsEditorFollowingTest, EscapeShowsTheStoredPortsAndLeavingKeepsThem) {
  headless::Window& window = show();
  type(window, 0, "90");
  storeElsewhere([](QEVNetworkProtocolList& list) { list[0]->protocolPorts = "81"; });
  window.settle();
  window.press(Key::escape);
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "3128,8080"));

  type(window, 1, "none");
  window.press(Key::enter);
  storeElsewhere([](QEVNetworkProtocolList& list) { list[1]->protocolPorts = "7"; });
  window.press(Key::escape);
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "7"));
  EXPECT_FALSE(window.find(Role::alert).exists());
  window.selectTab("Fonts");
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 81", "Proxy 7"));
}

TEST_F(PortsEditorFollowingTest, FactoryRowsAreMatchedByNameWhenAnotherProcessStoresThemFirst) {
  headless::Window& window = show();
  type(window, 1, "90");
  storeElsewhere([](QEVNetworkProtocolList& list) {
    list = {protocol("HTTP", "81", 1), protocol("Proxy", "1", 1)};
  });
  window.settle();
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "90"));
}

TEST_F(PortsEditorFollowingTest, WhatIsStoredWhileTheAnalyzerIsBusyIsKept) {
  headless::Window& window = show();
  preferences->refuse = [this] {
    storeElsewhere([](QEVNetworkProtocolList& list) { list[1]->protocolPorts = "7"; });
  };
  type(window, 0, "81");
  window.press(Key::enter);
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 81", "Proxy 7"));
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "7"));
}

TEST_F(PortsEditorFollowingTest, RefusedTextIsNotStoredWithAnotherRow) {
  headless::Window& window = show();
  type(window, 0, "none");
  window.press(Key::enter);
  window.choose(menu(window, "Source", 1), "UDP");
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 80", "Proxy 3128,8080"));
  EXPECT_THAT(shownPorts(window), ElementsAre("none", "3128,8080"));
  EXPECT_THAT(window.find(Role::alert).label(), testing::StartsWith("Error"));

  preferences->refuse = [] { throw QEVError::analyzerRefusedChange; };
  type(window, 0, "90");
  window.press(Key::enter);
  preferences->refuse = nullptr;
  window.choose(menu(window, "Source", 1), "TCP");
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 80", "Proxy 3128,8080"));
  EXPECT_THAT(shownPorts(window), ElementsAre("90", "3128,8080"));
}

TEST_F(PortsEditorFollowingTest, AnUnloadedPlugInReceivesNoCalls) {
  headless::Window& window = show();
  const std::weak_ptr<PortsPreferences> unloaded = std::exchange(preferences, nullptr);
  auto& registry = QEVModels::QEVPlugInsController::sharedManager();
  registry.unregisterPlugIn(registry.plugInStructs().front().id);
  EXPECT_TRUE(unloaded.expired());
  window.choose(menu(window, "Source", 0), "UDP");
  type(window, 1, "9");
  window.press(Key::enter);
  EXPECT_THAT(journal,
              ElementsAre("store", "notify 9", "notify 3", "store", "notify 9", "notify 3"));
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 80", "Proxy 9"));
}

TEST_F(PortsEditorFollowingTest, ResetThatTheAnalyzerRefusesIsShownOnThePage) {
  headless::Window& window = show();
  preferences->refuseDefaults = [] { throw QEVError::registrationFailed; };
  window.click(window.find(Role::button, "Reset"));
  EXPECT_EQ(window.find(Role::alert).label(), "Error\n" + message(QEVError::registrationFailed));
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 80", "Proxy 3128,8080"));
  preferences->refuseDefaults = nullptr;
  window.click(window.find(Role::button, "Reset"));
  EXPECT_FALSE(window.find(Role::alert).exists());
}

}  // namespace
}  // namespace QEVSettings
