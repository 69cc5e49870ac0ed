#include "QEVSettings/QEVPreferencesMigration.hpp"

#include "QEVLog/QEVLog.hpp"
#include "foundation/Base64.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace QEVSettings {

namespace {

using foundation::JSON;
using foundation::JSONWriter;

constexpr std::string_view kPorts = "protocolPorts";

bool isAnalyzerKey(std::string_view key, std::string_view suffix) {
  return key.starts_with(kAnalyzerKeyPrefix) && key.ends_with(suffix);
}

bool isArrayOfObjects(const JSON& json) {
  const auto elements = json.elements();
  return json.isArray() && std::all_of(elements.begin(), elements.end(), [](const JSON& e) { return e.isObject(); });
}

// The elements of an array joined by commas; nothing when `textOf` makes nothing of one of them.
template <class TextOf>
std::optional<std::string> joined(const JSON& array, TextOf textOf) {
  std::string result;
  bool isFirst = true;
  for (const JSON& element : array.elements()) {
    const std::optional<std::string> text = textOf(element);
    if (!text) return std::nullopt;
    if (!std::exchange(isFirst, false)) result += ',';
    result += *text;
  }
  return result;
}

// The string in place of ports that are an array of integers or an array of strings; nothing for any
// other ports.
std::optional<std::string> portsAsString(const JSON& ports) {
  if (!ports.isArray()) return std::nullopt;
  if (auto text = joined(ports, [](const JSON& element) { return element.integerText(); })) return text;
  return joined(ports, [](const JSON& element) { return element.asString(); });
}

// The list with every record's ports as a string; nothing when it is no list or needs no change.
std::optional<PreferenceValue::Bytes> listWithPortsAsStrings(const PreferenceValue::Bytes& bytes) {
  const std::string_view stored(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const auto list = JSON::parseBorrowed(stored);
  if (!list || !isArrayOfObjects(*list)) return std::nullopt;

  bool isChanged = false;
  JSONWriter writer;
  writer.reserve(stored.size());
  writer.beginArray();
  for (const JSON& record : list->elements()) {
    const auto ports = record.member(kPorts);
    const auto text = ports ? portsAsString(*ports) : std::nullopt;
    if (text) {
      writer.object(record, kPorts, *text);
      isChanged = true;
    } else {
      writer.value(record);
    }
  }
  writer.endArray();
  if (!isChanged) return std::nullopt;
  return PreferenceValue::Bytes(writer.text().begin(), writer.text().end());
}

}  // namespace

void QEVPreferencesMigration::migrateIfNeeded(PreferencesStore& defaults) {
  const std::int64_t stored = defaults.integerForKey(schemaVersionKey);
  if (stored >= currentSchemaVersion) return;
  if (stored != 1) migrateColorFormatDataToBase64(defaults);
  migrateProtocolsPortsFromArrayToString(defaults);
  defaults.setInteger(currentSchemaVersion, schemaVersionKey);
}

// Both steps let go of an entry of their snapshot once it is dealt with: two of every list may be more than there
// is room for.
void QEVPreferencesMigration::migrateColorFormatDataToBase64(PreferencesStore& defaults) {
  int rewritten = 0;
  auto snapshot = defaults.dictionaryRepresentation();
  while (!snapshot.empty()) {
    const auto entry = snapshot.extract(snapshot.begin());
    const std::string& key = entry.key();
    const PreferenceValue& value = entry.mapped();
    const auto* bytes = isAnalyzerKey(key, kColorKeySuffix) ? value.asData() : nullptr;
    if (!bytes) continue;
    defaults.setObject(foundation::base64Encoded(*bytes), key);
    ++rewritten;
  }
  if (rewritten == 0) return;
  QEVLog::logMessage(
      "prefs migration v1: rewrote " + std::to_string(rewritten) + " color key(s) from Data to base64 String",
      "migrateColorFormatDataToBase64(defaults:)");
}

void QEVPreferencesMigration::migrateProtocolsPortsFromArrayToString(PreferencesStore& defaults) {
  int rewritten = 0;
  auto snapshot = defaults.dictionaryRepresentation();
  while (!snapshot.empty()) {
    const auto entry = snapshot.extract(snapshot.begin());
    const std::string& key = entry.key();
    const PreferenceValue& value = entry.mapped();
    const auto* bytes = isAnalyzerKey(key, kProtocolsKeySuffix) ? value.asData() : nullptr;
    if (!bytes) continue;
    auto list = listWithPortsAsStrings(*bytes);
    if (!list) continue;
    defaults.setObject(*std::move(list), key);
    ++rewritten;
  }
  if (rewritten == 0) return;
  QEVLog::logMessage("prefs migration v2: rewrote protocolPorts from array to String in " + std::to_string(rewritten) +
                         " protocol list(s)",
                     "migrateProtocolsPortsFromArrayToString(defaults:)");
}

}  // namespace QEVSettings
