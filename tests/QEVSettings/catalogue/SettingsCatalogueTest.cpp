// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsCatalogue.hpp"

#include "HostParts.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "TestAnalyzers.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"
#include "headless/Window.hpp"
#include "services/ProxyService.hpp"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace QEVSettings {
namespace {

using headless::Element;
using QEVModels::QEVPlugInsController;
using Tabs = QEVSettingsView::Tabs;
using viewkit::Role;

// Takes every analyzer out of the registry when a test begins and ends.
struct EmptyRegistry {
  EmptyRegistry() { clear(); }
  ~EmptyRegistry() { clear(); }
  static void clear() {
    auto& registry = QEVPlugInsController::sharedManager();
    while (!registry.plugInStructs().empty())
      registry.unregisterPlugIn(registry.plugInStructs().front().id);
  }
};

// Uses every control of a page in the way that changes what it stores.
void useEveryControl(headless::Window& window) {
  const auto each = [&](Role role, const auto& use) {
    const std::size_t count = window.findAll(role).size();
    for (std::size_t i = 0; i < count && i < window.findAll(role).size(); ++i)
      use(window.findAll(role)[i]);
  };
  for (int round = 0; round < 2; ++round) {
    each(Role::toggle, [&](const Element& toggle) { window.click(toggle); });
    each(Role::colorWell, [&](const Element& well) {
      window.choose(well, appkit::RGBA{0.5, round * 0.5, 0.25, 1});
    });
    each(Role::fontPicker, [&](const Element& picker) {
      window.choose(picker,
                    appkit::Font{.family = "Test Mono", .style = "", .pointSize = 13.0 + round});
    });
    each(Role::menuButton, [&](const Element& menu) {
      const auto items = window.menuItems(menu);
      if (!items.empty())
        window.choose(menu, round == 0 ? items.back().title : items.front().title);
    });
    each(Role::textField, [&](const Element& field) {
      // A text, a number and a host: each field takes one of them.
      for (const char* text : {"tcp", "512", "proxy.example"}) {
        window.click(field);
        window.selectAll();
        window.type(text);
        window.press(headless::Key::enter);
      }
    });
    each(Role::listItem, [&](const Element& item) { window.click(item); });
    for (const char* mode : {"Light", "Auto"}) {
      if (const Element button = window.find(Role::button, mode); button.exists())
        window.click(button);
    }
    if (const Element reset = window.find(Role::button, "Reset"); reset.exists())
      window.click(reset);
  }
}

class SettingsCatalogueTest : public testing::Test {
protected:
  SettingsCatalogueTest() {
    // With the names of the time zones.
    foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
    parts.interfaces->interfaces = {{.name = "eth0", .addresses = {}, .isUp = true},
                                    {.name = "eth1", .addresses = {}, .isUp = false}};
  }

  EmptyRegistry registry;
  HostParts parts;
};

TEST_F(SettingsCatalogueTest, EveryControlOfEveryPageWritesValuesThatFitTheirDescriptors) {
  zorvantine::loadAnalyzers(std::nullopt, parts.store);
  SettingsCatalogue settings;
  for (const auto& each : zorvantine::hostSettings()) settings.add(each);
  auto capture =
      std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(parts.store, parts.interfaces);
  parts.captureModel = capture;
  auto proxy = std::make_shared<zorvantine::ProxyService>(parts.store);
  const auto open = [&](Tabs tab) {
    return std::make_unique<headless::Window>(parts.settingsView(tab, ProxySettingsView(proxy)),
                                              viewkit::Environment{.defaultStore = parts.store});
  };
  for (const Tabs tab : {Tabs::general, Tabs::capture, Tabs::proxy, Tabs::appearance})
    useEveryControl(*open(tab));
  const auto count = QEVPlugInsController::sharedManager().plugInStructs().size();
  for (std::size_t i = 0; i < count; ++i) {
    parts.store.setInteger(static_cast<std::int64_t>(i), kAnalyzerSelectedIndex.name);
    useEveryControl(*open(Tabs::analyze));
  }

  std::set<std::string> written;
  auto changes = parts.store.changes();
  const auto updates = parts.updaterStore.changes();
  changes.insert(changes.end(), updates.begin(), updates.end());
  for (const auto& change : changes) {
    SCOPED_TRACE(change.key);
    ASSERT_TRUE(change.value) << "a page removed a key";
    written.insert(change.key);
    const auto* const known = settings.current().find(change.key);
    ASSERT_NE(known, nullptr) << "no descriptor";
    EXPECT_EQ(misfit(*known, *change.value), std::nullopt);
    EXPECT_NE(zorvantine::hostCatalogue().find(change.key), nullptr) << "not told on the shell";
  }
  // The controls were really used: what no page shows is all that was not written.
  for (const PreferenceDescriptor* each : settings.current().all()) {
    EXPECT_TRUE(each->place.tab.empty() || written.contains(each->key)) << each->key;
  }
}

TEST_F(SettingsCatalogueTest, AnalyzersSettingsAreTakenAnewWhenOneRegistersOrLeaves) {
  SettingsCatalogue settings;
  const std::size_t fixed = settings.current().size();
  zorvantine::loadAnalyzers(2, parts.store);
  const auto* const option = settings.current().find("com_velloquin_qev_synthetic1_checksums");
  ASSERT_NE(option, nullptr);
  EXPECT_EQ(option->place.analyzer, "Analyzer 1");
  EXPECT_EQ(option->place.row, "Compute checksums");
  const auto* const ports = settings.current().find("com_velloquin_qev_synthetic2_protocols");
  ASSERT_NE(ports, nullptr);
  EXPECT_EQ(misfit(*ports, *ports->defaultValue), std::nullopt);
  EmptyRegistry::clear();
  EXPECT_EQ(settings.current().size(), fixed);
}

TEST_F(SettingsCatalogueTest, ListsThatDifferInIdentitiesAloneMeanTheSame) {
  const auto* const ports = zorvantine::hostCatalogue().find("com_velloquin_qev_dns_protocols");
  ASSERT_NE(ports, nullptr);
  const auto list = [](const std::string& text) {
    return PreferenceValue(PreferenceValue::Bytes(text.begin(), text.end()));
  };
  const auto plain = list(R"([{"protocolName":"DNS","protocolPorts":"53","sourceProtocol":3}])");
  EXPECT_TRUE(meanTheSame(
      *ports, plain,
      list(R"([{"id":"1","protocolName":"DNS","protocolPorts":"53","sourceProtocol":3}])")));
  EXPECT_FALSE(meanTheSame(
      *ports, plain, list(R"([{"protocolName":"DNS","protocolPorts":"54","sourceProtocol":3}])")));
  EXPECT_NE(misfit(*ports, list("[1]")), std::nullopt);
}

}  // namespace
}  // namespace QEVSettings
