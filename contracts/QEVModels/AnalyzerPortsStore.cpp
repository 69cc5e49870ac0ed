#include "QEVModels/AnalyzerPortsStore.hpp"

#include "QEVModels/PortsValidator.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"

#include <optional>
#include <utility>

namespace QEVModels {

using foundation::JSON;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVSettings::PreferenceValue;

namespace {

std::optional<QEVNetworkProtocolList> listOf(const PreferenceValue::Bytes& bytes) {
  const auto json = JSON::parse({bytes.begin(), bytes.end()});
  if (!json || !json->isArray()) return std::nullopt;
  QEVNetworkProtocolList list;
  for (const JSON& element : json->elements()) {
    auto record = QEVNetworkProtocol::decoded(element);
    if (!record) return std::nullopt;
    list.push_back(*std::move(record));
  }
  return list;
}

}  // namespace

AnalyzerPortsStore::AnalyzerPortsStore(std::string key, QEVSettings::PreferencesStore& defaults)
    : key_(std::move(key)), defaults_(defaults) {}

QEVNetworkProtocolList AnalyzerPortsStore::decode(const QEVNetworkProtocolList& fallback) const {
  const auto stored = defaults_.objectForKey(key_);
  const auto* bytes = stored ? stored->asData() : nullptr;
  auto list = bytes ? listOf(*bytes) : std::nullopt;
  return list ? *std::move(list) : fallback;
}

void AnalyzerPortsStore::encode(const QEVNetworkProtocolList& list) const {
  foundation::JSONWriter writer;
  writer.beginArray();
  for (const auto& record : list) record->encode(writer);
  writer.endArray();
  const std::string& text = writer.text();
  defaults_.setObject(PreferenceValue::Bytes(text.begin(), text.end()), key_);
}

PortValidationResult AnalyzerPortsStore::validatedReporting(const QEVNetworkProtocol& protocol) const {
  return validatedPorts(protocol.protocolPorts.get());
}

}  // namespace QEVModels
