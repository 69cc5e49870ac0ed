#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"

#include <optional>

namespace QEVDependencies {

// What a plug-in's preferences object adopts when the plug-in has settings. Main thread.
class QEVPluginPreferencesProtocol {
public:
  QEVPluginPreferencesProtocol() = default;
  QEVPluginPreferencesProtocol(const QEVPluginPreferencesProtocol&) = delete;
  QEVPluginPreferencesProtocol& operator=(const QEVPluginPreferencesProtocol&) = delete;
  virtual ~QEVPluginPreferencesProtocol() = default;

  // The plug-in's settings, asked for anew whenever they are shown, so quick to answer; nothing
  // when there is nothing to configure.
  virtual std::optional<AnalyzerSettingsConfig> analyzerSettingsConfig() const = 0;
};

}  // namespace QEVDependencies
