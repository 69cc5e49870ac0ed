// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsCatalogue.hpp"

#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "foundation/Diagnostics.hpp"

#include <algorithm>
#include <memory>
#include <utility>

namespace QEVSettings {

using QEVDependencies::QEVPluginPreferencesProtocol;
using QEVModels::QEVPlugInsController;

SettingsCatalogue::SettingsCatalogue() : catalogue_(fixedCatalogue()) {
  for (const PreferenceDescriptor* each : catalogue_.all()) own_.push_back(each->key);
}

void SettingsCatalogue::add(PreferenceDescriptor descriptor) {
  std::string key = descriptor.key;
  if (const auto problem = catalogue_.add(std::move(descriptor))) {
    foundation::reportDiagnostic("preferences: " + *problem);
  } else {
    own_.push_back(std::move(key));
  }
}

std::vector<PreferenceDescriptor> SettingsCatalogue::own() const {
  std::vector<PreferenceDescriptor> settings;
  settings.reserve(own_.size());
  for (const std::string& key : own_) settings.push_back(*catalogue_.find(key));
  return settings;
}

const PreferenceDescriptor* SettingsCatalogue::find(std::string_view key) {
  const bool isOwn = std::ranges::find(own_, key) != own_.end();
  return isOwn ? catalogue_.find(key) : current().find(key);
}

const PreferenceCatalogue& SettingsCatalogue::current() {
  const auto revision = QEVPlugInsController::sharedManager().revision();
  if (revision_ != revision) takeAnalyzers();
  revision_ = revision;
  return catalogue_;
}

void SettingsCatalogue::takeAnalyzers() {
  for (const std::string& key : std::exchange(ofAnalyzers_, {})) catalogue_.remove(key);
  for (const auto& plugIn : *QEVPlugInsController::sharedManager().snapshot()) {
    const auto preferences = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(
        plugIn.plugInPreferencesInstance.lock());
    std::optional<QEVDependencies::AnalyzerSettingsConfig> config;
    // The analyzer's page shows why an analyzer cannot describe itself.
    if (preferences) failureOf([&] { config = preferences->analyzerSettingsConfig(); });
    if (!config) continue;
    for (PreferenceDescriptor& each : analyzerDescriptors({.title = plugIn.plugInTitle,
                                      .toggles = config->toggles,
                                      .color = config->color,
                                      .ports = config->ports})) {
      std::string key = each.key;
      if (const auto problem = catalogue_.add(std::move(each))) {
        foundation::reportDiagnostic("preferences: " + *problem);
      } else {
        ofAnalyzers_.push_back(std::move(key));
      }
    }
  }
}

}  // namespace QEVSettings
