// SPDX-License-Identifier: MIT
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "analyzers/AnalyzerDescription.hpp"

#include <memory>
#include <optional>

namespace zorvantine {

using QEVDependencies::AnalyzerPortsSpec;
using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVNetworkProtocol;

namespace {

kQEVSourceProtocols::Case sourceOf(Transport transport) {
  switch (transport) {
    case Transport::tcp: return kQEVSourceProtocols::tcp;
    case Transport::udp: return kQEVSourceProtocols::udp;
    case Transport::both: return kQEVSourceProtocols::both;
    case Transport::none: break;
  }
  return kQEVSourceProtocols::none;
}

AnalyzerPortsSpec portsOf(const AnalyzerDescription& analyzer) {
  AnalyzerPortsSpec spec{.networkProtocolKey = analyzer.key("protocols"),
                         .defaultProtocolNames = {},
                         .defaultPorts = {}};
  for (const auto& [name, ports, transport] : analyzer.protocols) {
    spec.defaultProtocolNames.push_back(name);
    spec.defaultPorts.push_back(std::make_shared<QEVNetworkProtocol>(
        foundation::UUID::random(), name, ports, sourceOf(transport), std::nullopt, std::nullopt,
        std::nullopt));
  }
  return spec;
}

}  // namespace

QEVSettings::AnalyzerSettings settingsOf(const AnalyzerDescription& analyzer) {
  QEVSettings::AnalyzerSettings settings{.title = analyzer.title};
  for (const OptionDescription& option : analyzer.options) {
    settings.toggles.push_back({.id = option.name,
                                .defaultsKey = analyzer.key(option.name),
                                .defaultValue = option.isOnByDefault,
                                .labelKey = option.label});
  }
  if (analyzer.isColored) {
    settings.color = {.colorKey = analyzer.key("color"),
                      .usesColorKey = analyzer.key("colors_packets")};
  }
  if (!analyzer.protocols.empty()) settings.ports = portsOf(analyzer);
  return settings;
}

}  // namespace zorvantine
