// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVDependencies/QEVPreferencesObject.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "analyzers/RunningAnalyzer.hpp"

#include <memory>
#include <optional>

namespace zorvantine {

// The settings that an analyzer of this description has. Each call makes new factory records.
QEVDependencies::AnalyzerSettingsConfig configOf(const AnalyzerDescription& analyzer);

// The preferences object of an analyzer that has settings. It owns the running analyzer.
class AnalyzerPreferences : public QEVDependencies::QEVPreferencesObject,
                            public QEVDependencies::QEVPluginPreferencesProtocol {
public:
  // The store outlives the object.
  AnalyzerPreferences(const AnalyzerDescription& analyzer, QEVSettings::PreferencesStore& store);

  std::optional<QEVDependencies::AnalyzerSettingsConfig> analyzerSettingsConfig() const override {
    return config_;
  }

  // Null for an analyzer that watches no ports.
  RunningAnalyzer* running() const { return running_.get(); }

private:
  QEVDependencies::AnalyzerSettingsConfig config_;
  std::unique_ptr<RunningAnalyzer> running_;
};

// The preferences object of an analyzer that also hears of each changed port.
class AnalyzerPortsPreferences final : public AnalyzerPreferences,
                                       public QEVDependencies::QEVPortsPreferencesProtocol {
public:
  AnalyzerPortsPreferences(const AnalyzerDescription& analyzer,
                           QEVSettings::PreferencesStore& store);

  // Throws when the analyzer insists on its factory ports and `current` has others, whichever
  // member changed.
  void replaceProtoocol(const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& old,
                        const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& current,
                        QEVDependencies::QEVNetworkProtocolProperty changed) override;
  void setDefaultSettings(bool reset) override;

private:
  bool keepsToItsPorts_;
};

}  // namespace zorvantine
