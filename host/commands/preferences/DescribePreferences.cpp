// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingDefault.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/PreferenceJSON.hpp"
#include "commandline/PreferenceLine.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <ostream>

namespace zorvantine {

using foundation::JSONWriter;
using QEVSettings::PreferenceDescriptor;
using QEVSettings::PreferenceValue;

namespace {

constexpr std::size_t kLongestValue = 80;

// A key that is stored and not described has its type from the value.
PreferenceDescriptor undescribed(const std::string& key, const PreferenceValue& value) {
  return {.key = key, .type = value.type(), .title = "", .purpose = ""};
}

std::optional<PreferenceValue> inForce(const PreferenceDescriptor& descriptor) {
  auto value = ProgramPreferences::inForce().objectForKey(descriptor.key);
  return value ? value : defaultOf(descriptor);
}

void writeValue(JSONWriter& writer, const std::optional<PreferenceValue>& value) {
  if (value) {
    writePreference(writer, *value);
  } else {
    writer.null();
  }
}

void writeRange(JSONWriter& writer, const PreferenceDescriptor& descriptor) {
  if (const auto* range = std::get_if<QEVSettings::IntegerRange>(&descriptor.limits)) {
    writer.beginObject().name("lowest").integer(range->lowest);
    writer.name("highest").integer(range->highest).endObject();
  } else if (const auto* choices =
                 std::get_if<QEVSettings::PreferenceChoices>(&descriptor.limits)) {
    writer.beginArray();
    for (const std::string& each : *choices) writer.string(each);
    writer.endArray();
  } else {
    writer.null();
  }
}

void writeSetting(JSONWriter& writer, const PreferenceDescriptor& descriptor) {
  const auto& preferences = ProgramPreferences::inForce();
  writer.name(descriptor.key).beginObject().name("type").string(nameOf(descriptor.type));
  writeValue(writer.name("default"), defaultOf(descriptor));
  writeRange(writer.name("range"), descriptor);
  writer.name("title").string(descriptor.title).name("purpose").string(descriptor.purpose);
  writeValue(writer.name("value"), inForce(descriptor));
  writer.name("origin").string(nameOf(preferences.origin(descriptor.key)));
  writer.name("locked").boolean(preferences.isLocked(descriptor.key)).endObject();
}

std::string shown(const std::optional<PreferenceValue>& value) {
  return value ? onOneLine(shortened(readableForm(*value), kLongestValue)) : "none";
}

void printSetting(std::ostream& out, const PreferenceDescriptor& descriptor) {
  const auto& preferences = ProgramPreferences::inForce();
  const std::string limits = limitsOf(descriptor);
  out << onOneLine(descriptor.key) << '\n';
  if (!descriptor.title.empty()) {
    // The titles of fonts end with a colon, as the page shows them.
    const char* const colon = descriptor.title.ends_with(':') ? " " : ": ";
    out << "  " << onOneLine(descriptor.title) << colon << onOneLine(descriptor.purpose) << '\n';
  }
  out << "  type: " << nameOf(descriptor.type) << (limits.empty() ? "" : ", ") << onOneLine(limits)
      << "\n  default: " << shown(defaultOf(descriptor))
      << "\n  value: " << shown(inForce(descriptor))
      << "\n  origin: " << nameOf(preferences.origin(descriptor.key))
      << (preferences.isLocked(descriptor.key) ? " by your organization" : "") << '\n';
}

}  // namespace

Failed run(const DescribePreferencesCommand& command, Console& console) {
  std::vector<PreferenceDescriptor> settings;
  for (const std::string& key : command.keys) {
    const auto* known = hostCatalogue().find(key);
    const auto stored = ProgramPreferences::inForce().objectForKey(key);
    if (known == nullptr && !stored) return noSuchKey(key);
    settings.push_back(known != nullptr ? *known : undescribed(key, *stored));
  }
  if (command.keys.empty()) {
    for (const PreferenceDescriptor* each : hostCatalogue().all()) settings.push_back(*each);
  }
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  if (command.format == OutputFormat::text) {
    for (const PreferenceDescriptor& each : settings) printSetting(console.out, each);
    return std::nullopt;
  }
  JSONWriter writer;
  writer.beginObject();
  for (const PreferenceDescriptor& each : settings) writeSetting(writer, each);
  console.out << writer.endObject().text() << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
