// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"

#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "foundation/Base64.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"

#include <algorithm>
#include <cstdint>
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
  return json.isArray() &&
         std::all_of(elements.begin(), elements.end(), [](const JSON& e) { return e.isObject(); });
}

// The texts of the elements joined by commas. Nothing when `textOf` returns nothing for an element.
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

// The string for an array of integers or an array of strings. Nothing for any other value.
std::optional<std::string> portsAsString(const JSON& ports) {
  if (!ports.isArray()) return std::nullopt;
  if (auto text = joined(ports, [](const JSON& element) { return element.integerText(); }))
    return text;
  return joined(ports, [](const JSON& element) { return element.asString(); });
}

// The list with the ports of every record as a string. Nothing when it is not a protocol list or
// needs no change.
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

// The value in the current form. Nothing when a store of that schema already has it in this form.
std::optional<PreferenceValue> inCurrentForm(std::string_view key, const PreferenceValue& value,
                                             std::int64_t schema) {
  auto color = schema < 1 ? colorAsText(key, value) : std::nullopt;
  return color ? color : protocolListWithPortsAsText(key, value);
}

}  // namespace

std::optional<PreferenceValue> colorAsText(std::string_view key, const PreferenceValue& value) {
  const auto* bytes = isAnalyzerKey(key, kColorKeySuffix) ? value.asData() : nullptr;
  if (bytes == nullptr) return std::nullopt;
  return PreferenceValue(foundation::base64Encoded(*bytes));
}

std::optional<PreferenceValue> protocolListWithPortsAsText(std::string_view key,
                                                           const PreferenceValue& value) {
  const auto* bytes = isAnalyzerKey(key, kProtocolsKeySuffix) ? value.asData() : nullptr;
  auto list = bytes != nullptr ? listWithPortsAsStrings(*bytes) : std::nullopt;
  if (!list) return std::nullopt;
  return PreferenceValue(*std::move(list));
}

foundation::Result<CurrentPreferences> inCurrentSchema(PreferenceDictionary list) {
  const auto version = list.extract(std::string(QEVPreferencesMigration::schemaVersionKey));
  const std::int64_t schema = version ? version.mapped().convertedToInteger().value_or(0) : 0;
  if (schema > QEVPreferencesMigration::currentSchemaVersion) {
    return foundation::Error{"the preferences are of schema " + std::to_string(schema) +
                             ", which a newer release wrote; take them over with that release"};
  }
  CurrentPreferences current{.values = std::move(list)};
  if (schema == QEVPreferencesMigration::currentSchemaVersion) return current;
  for (auto& [key, value] : current.values) {
    auto form = inCurrentForm(key, value, schema);
    if (!form) continue;
    value = *std::move(form);
    ++current.rewritten;
  }
  return current;
}

std::vector<std::string> keysInOlderForm(const PreferenceDictionary& preferences) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : preferences) {
    if (inCurrentForm(key, value, 0)) keys.push_back(key);
  }
  return keys;
}

}  // namespace QEVSettings
