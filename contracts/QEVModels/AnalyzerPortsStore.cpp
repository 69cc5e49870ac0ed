// SPDX-License-Identifier: MIT
#include "QEVModels/AnalyzerPortsStore.hpp"

#include "QEVModels/PortsValidator.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace QEVModels {

using foundation::JSON;
using foundation::JSONWriter;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVSettings::PreferenceValue;

namespace {

// An element of the stored array that is not a protocol record, and its index.
struct UnreadableElement {
  std::size_t index;
  JSON value;
};

struct StoredList {
  QEVNetworkProtocolList records;
  std::vector<UnreadableElement> unreadable;
};

// Nothing when the stored value is not an array.
std::optional<StoredList> storedList(const PreferenceValue* stored) {
  const auto* bytes = stored ? stored->asData() : nullptr;
  if (!bytes) return std::nullopt;
  const auto json = JSON::parse({bytes->begin(), bytes->end()});
  if (!json || !json->isArray()) return std::nullopt;
  StoredList list;
  std::size_t index = 0;
  for (const JSON& element : json->elements()) {
    if (auto record = QEVNetworkProtocol::decoded(element)) {
      list.records.push_back(*std::move(record));
    } else {
      list.unreadable.push_back({index, element});
    }
    ++index;
  }
  return list;
}

QEVNetworkProtocolList usableRecords(const PreferenceValue* value,
                                     const QEVNetworkProtocolList& fallback) {
  auto stored = storedList(value);
  const bool isUsable = stored && (!stored->records.empty() || stored->unreadable.empty());
  if (!isUsable) return fallback;
  return std::move(stored->records);
}

void encodeRecord(const QEVNetworkProtocol& record, JSONWriter& writer) {
  if (record.hasPortController()) return record.encode(writer, record.lastRegisteredValues());
  auto values = record.values();
  std::string ports;
  if (values.ports != record.lastRegisteredPorts()) {
    ports = validatedPorts(values.ports).ports;
    if (ports.empty()) ports = record.lastRegisteredPorts();
    values.ports = ports;
  }
  record.encode(writer, values);
}

}  // namespace

QEVNetworkProtocolList decodedProtocols(const std::optional<PreferenceValue>& stored,
                                        const QEVNetworkProtocolList& fallback) {
  return usableRecords(stored ? &*stored : nullptr, fallback);
}

AnalyzerPortsStore::AnalyzerPortsStore(std::string key, QEVSettings::PreferencesStore& defaults)
    : key_(std::move(key)), defaults_(defaults) {}

QEVNetworkProtocolList AnalyzerPortsStore::decode(const QEVNetworkProtocolList& fallback) const {
  return usableRecords(defaults_.find(key_), fallback);
}

void AnalyzerPortsStore::encode(const QEVNetworkProtocolList& list) const {
  const auto stored = storedList(defaults_.find(key_)).value_or(StoredList{});
  auto unreadable = stored.unreadable.begin();
  JSONWriter writer;
  std::size_t index = 0;
  const auto carryOver = [&](auto isDue) {
    for (; unreadable != stored.unreadable.end() && isDue(*unreadable); ++unreadable, ++index) {
      writer.value(unreadable->value);
    }
  };
  writer.beginArray();
  for (const auto& record : list) {
    carryOver([&](const UnreadableElement& element) { return element.index <= index; });
    encodeRecord(*record, writer);
    ++index;
  }
  carryOver([](const UnreadableElement&) { return true; });
  writer.endArray();
  const std::string& text = writer.text();
  defaults_.setObject(PreferenceValue::Bytes(text.begin(), text.end()), key_);
}

PortValidationResult AnalyzerPortsStore::validatedReporting(
    const QEVNetworkProtocol& protocol) const {
  return validatedPorts(protocol.protocolPorts.get());
}

}  // namespace QEVModels
