// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerPreferences.hpp"

#include "QEVDependencies/QEVError.hpp"
#include "analyzers/TLSKeyLogField.hpp"

#include <algorithm>
#include <utility>

namespace zorvantine {

using QEVDependencies::AnalyzerSettingsConfig;
using QEVDependencies::QEVError;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolProperty;

AnalyzerSettingsConfig configOf(const AnalyzerDescription& analyzer) {
  QEVSettings::AnalyzerSettings settings = settingsOf(analyzer);
  AnalyzerSettingsConfig config{.toggles = std::move(settings.toggles),
                                .color = std::move(settings.color),
                                .ports = std::move(settings.ports)};
  if (analyzer.extraContent == ExtraContent::keyLogField)
    config.extraContent = [] { return TLSKeyLogField{}; };
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
