// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using foundation::PropertyListFormat;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::QEVPreferencesMigration;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// The bytes are compared, because not-a-number does not equal itself.
std::string bytesOf(const PreferenceDictionary& values) {
  const auto bytes = foundation::propertyListBytes(values, PropertyListFormat::binary);
  require(static_cast<bool>(bytes));
  return *bytes;
}

// Makes a list from a text: the first character is the schema version, and each line is a colour or
// a protocol list.
PreferenceDictionary listOfLines(std::string_view text) {
  PreferenceDictionary list;
  if (text.empty()) return list;
  if (text[0] != 'x') list.emplace(QEVPreferencesMigration::schemaVersionKey, text[0] - '1');
  text.remove_prefix(1);
  while (!text.empty()) {
    const auto line = text.substr(0, text.find('\n'));
    text.remove_prefix(line.size() + (line.size() < text.size() ? 1 : 0));
    const std::string key = "com_velloquin_qev_" + std::to_string(list.size());
    list.emplace(key + (line.starts_with('#') ? "_color" : "_protocols"),
                 PreferenceValue::Bytes(line.begin(), line.end()));
  }
  return list;
}

}  // namespace

// An import gives the same values as the migration of a store that holds the list. A second import
// changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto parsed = foundation::parsePropertyList(text);
  const PreferenceDictionary list = parsed ? *parsed : listOfLines(text);
  const auto current = QEVSettings::inCurrentSchema(list);

  const auto store = foundation::UserDefaults::inMemory();
  require(static_cast<bool>(store->applyAll(list)));
  const auto schema = store->integerForKey(QEVPreferencesMigration::schemaVersionKey);
  require(static_cast<bool>(current) == (schema <= QEVPreferencesMigration::currentSchemaVersion));
  if (!current) return 0;
  QEVPreferencesMigration::migrateIfNeeded(*store);
  store->removeObject(QEVPreferencesMigration::schemaVersionKey);
  require(bytesOf(store->dictionaryRepresentation()) == bytesOf(current->values));

  const auto again = QEVSettings::inCurrentSchema(current->values);
  require(again && (schema > 0 || again->rewritten == 0));
  if (schema <= 0) require(QEVSettings::keysInOlderForm(current->values).empty());
  return 0;
}
