// SPDX-License-Identifier: MIT
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <algorithm>
#include <ostream>

namespace zorvantine {

using foundation::JSONWriter;
using QEVDependencies::AnalyzerSettingsConfig;
using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVDependencies::QEVPluginPreferencesProtocol;
using QEVDependencies::QEVPlugInStructure;

namespace {

std::optional<AnalyzerSettingsConfig> configOf(const QEVPlugInStructure& plugIn) {
  const auto preferences = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(
      plugIn.plugInPreferencesInstance.lock());
  return preferences ? preferences->analyzerSettingsConfig() : std::nullopt;
}

std::string_view transportOf(const QEVNetworkProtocol& protocol) {
  switch (protocol.sourceProtocol.get()) {
    case kQEVSourceProtocols::tcp: return "TCP";
    case kQEVSourceProtocols::udp: return "UDP";
    case kQEVSourceProtocols::both: return "UDP/TCP";
    default: return "None";
  }
}

// The list in the store, which the analyzer uses.
QEVNetworkProtocolList currentList(const QEVDependencies::AnalyzerPortsSpec& ports) {
  return QEVModels::AnalyzerPortsStore(ports.networkProtocolKey, ProgramPreferences::inForce())
      .decode(ports.defaultPorts);
}

bool isOn(const std::string& key, bool whenAbsent) {
  const auto& preferences = ProgramPreferences::inForce();
  return preferences.objectForKey(key) ? preferences.boolForKey(key) : whenAbsent;
}

void printText(const QEVPlugInStructure& plugIn, std::ostream& out) {
  out << onOneLine(plugIn.plugInTitle) << ' ' << onOneLine(plugIn.plugInVersion) << "  "
      << plugIn.id.text() << "\n  " << onOneLine(plugIn.plugInDescription) << '\n';
  const auto config = configOf(plugIn);
  if (!config) {
    out << "  nothing to configure\n";
    return;
  }
  if (config->color) {
    out << "  coloring: " << (isOn(config->color->usesColorKey, false) ? "on" : "off") << "  "
        << onOneLine(config->color->colorKey) << ", " << onOneLine(config->color->usesColorKey)
        << '\n';
  }
  for (const auto& toggle : config->toggles) {
    out << "  option: " << onOneLine(toggle.labelKey) << ": "
        << (isOn(toggle.defaultsKey, toggle.defaultValue) ? "on" : "off") << "  "
        << onOneLine(toggle.defaultsKey) << '\n';
  }
  if (!config->ports) return;
  out << "  ports: " << onOneLine(config->ports->networkProtocolKey) << '\n';
  for (const auto& protocol : currentList(*config->ports)) {
    out << "    " << onOneLine(protocol->protocolName.get()) << ": "
        << onOneLine(protocol->protocolPorts.get()) << ' ' << transportOf(*protocol) << '\n';
  }
}

void writeProtocols(JSONWriter& writer, const QEVNetworkProtocolList& list) {
  writer.beginArray();
  for (const auto& protocol : list) {
    writer.beginObject().name("name").string(protocol->protocolName.get());
    writer.name("ports").string(protocol->protocolPorts.get());
    writer.name("source").string(transportOf(*protocol)).endObject();
  }
  writer.endArray();
}

void writeConfig(JSONWriter& writer, const AnalyzerSettingsConfig& config) {
  writer.name("options").beginArray();
  for (const auto& toggle : config.toggles) {
    writer.beginObject().name("id").string(toggle.id).name("label").string(toggle.labelKey);
    writer.name("key").string(toggle.defaultsKey).name("default").boolean(toggle.defaultValue);
    writer.name("value").boolean(isOn(toggle.defaultsKey, toggle.defaultValue)).endObject();
  }
  writer.endArray().name("color");
  if (config.color) {
    writer.beginObject().name("key").string(config.color->colorKey).name("switchKey");
    writer.string(config.color->usesColorKey)
        .name("value")
        .boolean(isOn(config.color->usesColorKey, false))
        .endObject();
  } else {
    writer.null();
  }
  writer.name("ports");
  if (config.ports) {
    writer.beginObject().name("key").string(config.ports->networkProtocolKey).name("default");
    writeProtocols(writer, config.ports->defaultPorts);
    writeProtocols(writer.name("value"), currentList(*config.ports));
    writer.endObject();
  } else {
    writer.null();
  }
}

void writeAnalyzer(JSONWriter& writer, const QEVPlugInStructure& plugIn) {
  writer.beginObject().name("id").string(plugIn.id.text()).name("title").string(plugIn.plugInTitle);
  writer.name("description")
      .string(plugIn.plugInDescription)
      .name("author")
      .string(plugIn.plugInAuthor);
  writer.name("version").string(plugIn.plugInVersion);
  writeConfig(writer, configOf(plugIn).value_or(AnalyzerSettingsConfig{}));
  writer.endObject();
}

}  // namespace

Failed run(const ListAnalyzersCommand& command, Console& console) {
  loadAnalyzers(std::nullopt, ProgramPreferences::inForce());
  const auto& plugIns = QEVModels::QEVPlugInsController::sharedManager().plugInStructs();
  if (command.format == OutputFormat::text) {
    for (const QEVPlugInStructure& plugIn : plugIns) printText(plugIn, console.out);
    return std::nullopt;
  }
  JSONWriter writer;
  writer.beginArray();
  for (const QEVPlugInStructure& plugIn : plugIns) writeAnalyzer(writer, plugIn);
  console.out << writer.endArray().text() << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
