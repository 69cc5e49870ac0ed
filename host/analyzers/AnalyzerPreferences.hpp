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

// What an analyzer of this description has to configure. The factory records are new at each call.
QEVDependencies::AnalyzerSettingsConfig configOf(const AnalyzerDescription& analyzer);

// The preferences object of an analyzer that has settings. Its analyzer runs as long as it lives.
class AnalyzerPreferences : public QEVDependencies::QEVPreferencesObject,
                            public QEVDependencies::QEVPluginPreferencesProtocol {
public:
  // The store outlives the object.
  AnalyzerPreferences(const AnalyzerDescription& analyzer, QEVSettings::PreferencesStore& store);

  std::optional<QEVDependencies::AnalyzerSettingsConfig> analyzerSettingsConfig() const override {
    return config_;
  }

  // Null for an analyzer that does not go by ports.
  RunningAnalyzer* running() const { return running_.get(); }

private:
  QEVDependencies::AnalyzerSettingsConfig config_;
  std::unique_ptr<RunningAnalyzer> running_;
};

// The preferences object of an analyzer that is told of each changed port besides.
class AnalyzerPortsPreferences final : public AnalyzerPreferences,
                                       public QEVDependencies::QEVPortsPreferencesProtocol {
public:
  AnalyzerPortsPreferences(const AnalyzerDescription& analyzer,
                           QEVSettings::PreferencesStore& store);

  // Throws when the description says that the analyzer keeps to its ports and `current` has others,
  // whichever member changed.
  void replaceProtoocol(const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& old,
                        const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& current,
                        QEVDependencies::QEVNetworkProtocolProperty changed) override;
  void setDefaultSettings(bool reset) override;

private:
  bool keepsToItsPorts_;
};

}  // namespace zorvantine
