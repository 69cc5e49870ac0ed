// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerColorSpec.hpp"
#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/AnalyzerToggleSpec.hpp"
#include "QEVSettings/preferences/PreferenceCatalogue.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// What an analyzer describes of its settings.
//
//     const AnalyzerSettings dns{.title = "DNS", .toggles = config.toggles, .color = config.color};
//     for (PreferenceDescriptor& each : analyzerDescriptors(dns)) settings.add(std::move(each));
struct AnalyzerSettings {
  std::string title;
  std::vector<QEVDependencies::AnalyzerToggleSpec> toggles = {};
  std::optional<QEVDependencies::AnalyzerColorSpec> color = std::nullopt;
  std::optional<QEVDependencies::AnalyzerPortsSpec> ports = std::nullopt;
};

// The descriptors of an analyzer's settings, in the order of the page.
std::vector<PreferenceDescriptor> analyzerDescriptors(const AnalyzerSettings& analyzer);

// The default value of a protocol list: its records without identities.
PreferenceValue protocolListValue(const QEVDependencies::QEVNetworkProtocolList& list);

// Whether two values mean the same setting. Two protocol lists do when their records agree in name,
// ports and source, whatever else they hold.
bool meanTheSame(const PreferenceDescriptor& descriptor, const PreferenceValue& a,
                 const PreferenceValue& b);

// The catalogue of the process: the keys with fixed names, those that the host adds, and the
// settings of the analyzers that are registered at present. Main thread.
//
//     SettingsCatalogue settings;
//     settings.add(descriptor);             // one call for each key of the host
//     settings.current().find(key);
class SettingsCatalogue {
public:
  SettingsCatalogue();

  // Adds a setting of the host. One that the catalogue refuses is reported in one line of
  // diagnostics.
  void add(PreferenceDescriptor descriptor);

  // Takes the analyzers' settings anew if an analyzer was registered or removed since the last
  // call. The reference is valid as long as this object, and a descriptor until the next call.
  const PreferenceCatalogue& current();

  // The descriptor of one key; null for a key that is not described. Asks the analyzers only for a
  // key that is not of the host. Valid until the next call that takes the analyzers' settings anew.
  const PreferenceDescriptor* find(std::string_view key);

  // The keys with fixed names and those of the host, without asking any analyzer.
  std::vector<PreferenceDescriptor> own() const;

private:
  void takeAnalyzers();

  PreferenceCatalogue catalogue_;
  std::vector<std::string> own_;
  std::vector<std::string> ofAnalyzers_;
  std::optional<std::uint64_t> revision_;
};

}  // namespace QEVSettings
