// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "TestAnalyzers.hpp"
#include "qt/WindowFixture.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>

namespace QEVSettings {
namespace {

using Tabs = QEVSettingsView::Tabs;

// The whole window, opened and closed as often as the user would in a week.
class ReopeningDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    const auto ports = std::make_shared<PortsPreferences>(journal);
    ports->config = {.ports = {{.networkProtocolKey = "ports",
                                .defaultProtocolNames = {"HTTP"},
                                .defaultPorts = {protocol("HTTP", "80", 1)}}}};
    plugIns.load("with ports", ports);
    plugIns.load("without settings");
    useStore(store);
  }

  void openAndClose(int round) {
    constexpr Tabs kTabs[] = {Tabs::general, Tabs::capture, Tabs::proxy, Tabs::analyze,
                              Tabs::appearance};
    const auto proxy = round % 2 == 0
                           ? std::optional<viewkit::View>(viewkit::Text("the host's own"))
                           : std::nullopt;
    open(settingsView(kTabs[round % 5], proxy));
    for (const char* tab : {"Fonts", "Analyzer", "Capture", "General"}) {
      find(QAccessible::PageTab, tab)
          .actionInterface()
          ->doAction(QAccessibleActionInterface::pressAction());
      settle();
    }
    destroyWindow();
  }

  Journal journal;
  LoadedPlugIns plugIns;
};

TEST_F(ReopeningDesktopTest, HundredClosedWindowsFreeTheirMemory) {
  openAndClose(0);
  const auto held = [this] {
    return std::vector<qsizetype>{captureModel.use_count(), updater.use_count(),
                                  delegate.use_count(), QApplication::allWidgets().size(),
                                  QApplication::topLevelWindows().size()};
  };
  const auto before = held();
  for (int round = 0; round < 100; ++round) openAndClose(round);
  EXPECT_EQ(held(), before);
}

}  // namespace
}  // namespace QEVSettings
