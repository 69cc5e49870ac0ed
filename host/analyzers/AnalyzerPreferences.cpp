#include "analyzers/AnalyzerPreferences.hpp"

#include "QEVDependencies/QEVError.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"

#include <algorithm>
#include <utility>

namespace zorvantine {

using QEVDependencies::AnalyzerPortsSpec;
using QEVDependencies::AnalyzerSettingsConfig;
using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVError;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolProperty;

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

AnalyzerSettingsConfig configOf(const AnalyzerDescription& analyzer) {
  AnalyzerSettingsConfig config;
  for (const OptionDescription& option : analyzer.options) {
    config.toggles.push_back({.id = option.name,
                              .defaultsKey = analyzer.key(option.name),
                              .defaultValue = option.isOnByDefault,
                              .labelKey = option.label});
  }
  if (analyzer.isColored) {
    config.color = {.colorKey = analyzer.key("color"),
                    .usesColorKey = analyzer.key("colors_packets")};
  }
  if (!analyzer.protocols.empty()) config.ports = portsOf(analyzer);
  config.extraContent = analyzer.extraContent;
  return config;
}

AnalyzerPreferences::AnalyzerPreferences(const AnalyzerDescription& analyzer,
                                         QEVSettings::PreferencesStore& store)
    : config_(configOf(analyzer)) {
  if (const auto& ports = config_.ports) {
    running_ =
        std::make_unique<RunningAnalyzer>(ports->networkProtocolKey, ports->defaultPorts, store);
  }
}

AnalyzerPortsPreferences::AnalyzerPortsPreferences(const AnalyzerDescription& analyzer,
                                                   QEVSettings::PreferencesStore& store)
    : AnalyzerPreferences(analyzer, store),
      keepsToItsPorts_(analyzer.preferences == Preferences::settingsAndVetoes) {}

void AnalyzerPortsPreferences::replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& old,
                                                const std::shared_ptr<QEVNetworkProtocol>& current,
                                                QEVNetworkProtocolProperty /*changed*/) {
  if (running() == nullptr) throw QEVError::analyzerNotRunning;
  if (keepsToItsPorts_) {
    const bool isKnown = std::ranges::any_of(running()->factoryList(), [&](const auto& factory) {
      return factory->protocolPorts.get() == current->protocolPorts.get();
    });
    if (!isKnown) throw QEVError::analyzerRefusedChange;
  }
  running()->replace(*old, current);
}

void AnalyzerPortsPreferences::setDefaultSettings(bool reset) {
  if (reset && running() != nullptr) running()->returnToFactoryList();
}

}  // namespace zorvantine
