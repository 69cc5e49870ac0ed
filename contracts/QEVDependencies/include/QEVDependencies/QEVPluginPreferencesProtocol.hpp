// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"

#include <optional>

namespace QEVDependencies {

// Implemented by the preferences object of a plug-in that has settings. Main thread.
//
//     std::optional<AnalyzerSettingsConfig> DNSPreferences::analyzerSettingsConfig() const {
//       return AnalyzerSettingsConfig{.toggles = toggles_, .color = color_};
//     }
class QEVPluginPreferencesProtocol {
public:
  QEVPluginPreferencesProtocol() = default;
  QEVPluginPreferencesProtocol(const QEVPluginPreferencesProtocol&) = delete;
  QEVPluginPreferencesProtocol& operator=(const QEVPluginPreferencesProtocol&) = delete;
  virtual ~QEVPluginPreferencesProtocol() = default;

  // The plug-in's settings, or nothing when there is nothing to configure. Called each time the
  // settings are shown, so it must be fast.
  virtual std::optional<AnalyzerSettingsConfig> analyzerSettingsConfig() const = 0;
};

}  // namespace QEVDependencies
