// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerWindowTest.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

inline constexpr const char* kPortsKey = "com_velloquin_qev_test_protocols";

// An analyzer of two protocols; the journal tells the controller's calls, the writes of the list
// and the notifications in one order.
class PortsEditorTest : public AnalyzerWindowTest {
protected:
  PortsEditorTest() {
    preferences->config = {.ports = {{.networkProtocolKey = kPortsKey,
                                      .defaultProtocolNames = {"HTTP", "Proxy", "WebSocket"},
                                      .defaultPorts = factory}}};
    load("Web", preferences);
  }

  // While the journal is still there.
  ~PortsEditorTest() override { close(); }

  headless::Window& show() {
    headless::Window& window = open();
    journal.clear();
    return window;
  }

  // Changes the stored list as another window or another process does.
  void storeElsewhere(const std::function<void(QEVDependencies::QEVNetworkProtocolList&)>& change) {
    const QEVModels::AnalyzerPortsStore ports(kPortsKey, store.underneath());
    auto list = ports.decode({*factory[0]->copied(), *factory[1]->copied()});
    change(list);
    ports.encode(list);
    journal.clear();
  }

  std::vector<std::string> storedPorts() {
    std::vector<std::string> texts;
    for (const auto& each :
         QEVModels::AnalyzerPortsStore(kPortsKey, store.underneath()).decode({})) {
      texts.push_back(each->protocolName.get() + " " + each->protocolPorts.get());
    }
    return texts;
  }

  static std::vector<std::string> shownPorts(const headless::Window& window) {
    std::vector<std::string> texts;
    for (const auto& field : window.findAll(viewkit::Role::textField))
      texts.push_back(field.value());
    return texts;
  }

  static void type(headless::Window& window, std::size_t row, std::string_view text) {
    window.click(window.findAll(viewkit::Role::textField)[row]);
    window.selectAll();
    window.type(text);
  }

  static headless::Element menu(const headless::Window& window, const char* label,
                                std::size_t row) {
    std::vector<headless::Element> menus = window.findAll(viewkit::Role::menuButton);
    std::erase_if(menus, [&](const headless::Element& each) { return each.label() != label; });
    return menus.at(row);
  }

  Journal journal;
  QEVDependencies::QEVNetworkProtocolList factory{protocol("HTTP", "80", 1),
                                                  protocol("Proxy", "3128,8080", 1)};
  std::shared_ptr<PortsPreferences> preferences = std::make_shared<PortsPreferences>(journal);

private:
  PortsWatch watch_{journal, store, kPortsKey};
};

}  // namespace QEVSettings
