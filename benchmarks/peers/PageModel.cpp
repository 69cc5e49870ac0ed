// SPDX-License-Identifier: MIT
#include "PageModel.hpp"

#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace peers {

using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVNetworkProtocolList;

namespace {

const std::string& iconOf(const std::string& label) {
  static const std::map<std::string, std::string> icons{
      {"Compute checksums", "patch-check"},
      {"Enable IP to DNS name resolution (may slow down)", "arrow-left-right"},
      {"Enable MAC to vendor ID resolution", "cpu"},
      {"Keep usernames and passwords private", "shield-lock"},
      {"Enable HTTP/2 Detection", "lightning"},
  };
  static const std::string other = "sliders";
  const auto found = icons.find(label);
  return found == icons.end() ? other : found->second;
}

}  // namespace

Details detailsOf(const QEVDependencies::QEVPlugInStructure& analyzer) {
  Details details{.title = analyzer.plugInTitle,
                  .subtitle = analyzer.plugInDescription + " · " + analyzer.plugInAuthor + " · " +
                              analyzer.plugInVersion,
                  .options = {},
                  .ports = {}};
  const auto preferences = std::dynamic_pointer_cast<QEVDependencies::QEVPluginPreferencesProtocol>(
      analyzer.plugInPreferencesInstance.lock());
  auto config = preferences ? preferences->analyzerSettingsConfig() : std::nullopt;
  if (!config) return details;
  for (const auto& option : config->toggles) {
    details.options.push_back({.key = option.defaultsKey,
                               .label = option.labelKey,
                               .icon = iconOf(option.labelKey),
                               .fallback = option.defaultValue});
  }
  details.ports = std::move(config->ports);
  return details;
}

std::size_t storedSelection(const QEVSettings::PreferencesStore& store, std::size_t count) {
  const auto stored = store.integerForKey(QEVSettings::kAnalyzerSelectedIndex.name);
  const auto last = static_cast<std::int64_t>(std::max<std::size_t>(count, 1) - 1);
  return static_cast<std::size_t>(std::clamp<std::int64_t>(stored, 0, last));
}

void storeSelection(std::size_t row, QEVSettings::PreferencesStore& store) {
  store.setInteger(static_cast<std::int64_t>(row), QEVSettings::kAnalyzerSelectedIndex.name);
}

const std::vector<std::string>& transportNames() {
  static const std::vector<std::string> names{"None", "TCP", "UDP", "UDP/TCP"};
  return names;
}

StoredPorts::StoredPorts(QEVDependencies::AnalyzerPortsSpec spec,
                         QEVSettings::PreferencesStore& store)
    : spec_(std::move(spec)), stored_(spec_.networkProtocolKey, store) {
  show(stored_.decode(spec_.defaultPorts));
}

std::size_t StoredPorts::name(std::size_t row) const {
  const auto found = std::ranges::find(names(), protocols_[row]->protocolName.get());
  return static_cast<std::size_t>(found - names().begin());
}

std::size_t StoredPorts::transport(std::size_t row) const {
  const auto raw = static_cast<std::size_t>(protocols_[row]->sourceProtocol.get());
  return raw < transportNames().size() ? raw : 0;
}

void StoredPorts::chooseName(std::size_t row, std::size_t name) {
  protocols_[row]->protocolName = names().at(name);
  save();
}

void StoredPorts::chooseTransport(std::size_t row, std::size_t transport) {
  protocols_[row]->sourceProtocol = kQEVSourceProtocols::allCases.at(transport);
  save();
}

void StoredPorts::typePorts(std::size_t row, const std::string& text) {
  protocols_[row]->protocolPorts = text;
}

void StoredPorts::endTyping(std::size_t row) {
  const auto result = stored_.validatedReporting(*protocols_[row]);
  if (result.ports.empty()) return;
  protocols_[row]->protocolPorts = result.ports;
  save();
}

void StoredPorts::reset() {
  show(spec_.defaultPorts);
  save();
}

// Shows copies, so that editing does not change the factory list.
void StoredPorts::show(const QEVNetworkProtocolList& protocols) {
  protocols_.clear();
  for (const auto& protocol : protocols) {
    const auto copy = protocol->copied();
    protocols_.push_back(copy ? *copy : protocol);
  }
}

}  // namespace peers
