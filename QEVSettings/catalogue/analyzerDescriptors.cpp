// SPDX-License-Identifier: MIT
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"

#include <algorithm>
#include <array>

namespace QEVSettings {

using foundation::JSON;
using foundation::JSONWriter;
using QEVDependencies::AnalyzerColorSpec;
using QEVDependencies::AnalyzerPortsSpec;
using QEVDependencies::AnalyzerToggleSpec;
using Type = PreferenceValue::Type;

namespace {

constexpr const char* kTab = "analyze";

std::optional<JSON> arrayOf(const PreferenceValue& value) {
  const auto* bytes = value.asData();
  if (bytes == nullptr) return std::nullopt;
  auto json = JSON::parse({bytes->begin(), bytes->end()});
  return json && json->isArray() ? std::optional(*std::move(json)) : std::nullopt;
}

std::optional<std::string> colorRule(const PreferenceValue& value) {
  const std::string* text = value.asString();
  if (text != nullptr && QEVCommonTools::colorFromRawValue(*text)) return std::nullopt;
  return "a colour: the base64 text of red, green, blue and opacity, each a number of 8 bytes";
}

std::optional<std::string> protocolListRule(const PreferenceValue& value) {
  const auto list = arrayOf(value);
  const auto isRecord = [](const JSON& record) {
    return record.isObject() && record.member("protocolName") && record.member("protocolPorts");
  };
  bool fits = list.has_value();
  if (list) {
    for (const JSON& record : list->elements()) fits = fits && isRecord(record);
  }
  if (fits) return std::nullopt;
  return R"(a list of protocols: the bytes of JSON such as [{"protocolName":"DNS",)"
         R"("protocolPorts":"53","sourceProtocol":3}])";
}

PreferenceDescriptor toggle(const std::string& title, const AnalyzerToggleSpec& spec) {
  return {.key = spec.defaultsKey,
          .type = Type::boolean,
          .defaultValue = spec.defaultValue,
          .title = spec.labelKey,
          .purpose = "Whether this option of the analyzer is on.",
          .place = {.tab = kTab, .analyzer = title, .row = spec.labelKey}};
}

PreferenceDescriptor color(const std::string& title, const AnalyzerColorSpec& spec) {
  return {.key = spec.colorKey,
          .type = Type::string,
          .rule = colorRule,
          .title = "Packet color",
          .purpose = "The colour of the analyzer's packets; a random one until it is chosen.",
          .place = {.tab = kTab, .analyzer = title, .row = "Packet coloring"}};
}

PreferenceDescriptor colorSwitch(const std::string& title, const AnalyzerColorSpec& spec) {
  return {.key = spec.usesColorKey,
          .type = Type::boolean,
          .defaultValue = kUsesColorDefault,
          .title = "Packet coloring",
          .purpose = "Whether the analyzer's packets are coloured.",
          .place = {.tab = kTab, .analyzer = title, .row = "Packet coloring"}};
}

PreferenceDescriptor ports(const std::string& title, const AnalyzerPortsSpec& spec) {
  return {.key = spec.networkProtocolKey,
          .type = Type::data,
          .defaultValue = protocolListValue(spec.defaultPorts),
          .rule = protocolListRule,
          .title = "Protocol Ports",
          .purpose = "The protocols of the analyzer and the ports by which it recognises them.",
          .place = {.tab = kTab, .analyzer = title, .row = "Ports"}};
}

// What a record says, without its identity.
std::array<std::string, 3> meaningOf(const JSON& record) {
  const auto text = [&](const char* name) {
    const auto member = record.member(name);
    return member ? member->text() : std::string();
  };
  return {text("protocolName"), text("protocolPorts"), text("sourceProtocol")};
}

}  // namespace

std::vector<PreferenceDescriptor> analyzerDescriptors(const AnalyzerSettings& analyzer) {
  std::vector<PreferenceDescriptor> descriptors;
  if (analyzer.color) {
    descriptors.push_back(colorSwitch(analyzer.title, *analyzer.color));
    descriptors.push_back(color(analyzer.title, *analyzer.color));
  }
  for (const AnalyzerToggleSpec& spec : analyzer.toggles)
    descriptors.push_back(toggle(analyzer.title, spec));
  if (analyzer.ports) descriptors.push_back(ports(analyzer.title, *analyzer.ports));
  return descriptors;
}

PreferenceValue protocolListValue(const QEVDependencies::QEVNetworkProtocolList& list) {
  JSONWriter writer;
  writer.beginArray();
  for (const auto& record : list) {
    writer.beginObject().name("protocolName").string(record->protocolName.get());
    writer.name("protocolPorts").string(record->protocolPorts.get());
    writer.name("sourceProtocol").integer(record->sourceProtocol.get()).endObject();
  }
  const std::string text = writer.endArray().takeText();
  return PreferenceValue::Bytes(text.begin(), text.end());
}

bool meanTheSame(const PreferenceDescriptor& descriptor, const PreferenceValue& a,
                 const PreferenceValue& b) {
  if (a == b || descriptor.type != Type::data) return a == b;
  const auto first = arrayOf(a);
  const auto second = arrayOf(b);
  if (!first || !second) return false;
  const auto elements = first->elements();
  const auto others = second->elements();
  return std::equal(elements.begin(), elements.end(), others.begin(), others.end(),
                    [](const JSON& x, const JSON& y) { return meaningOf(x) == meaningOf(y); });
}

}  // namespace QEVSettings
