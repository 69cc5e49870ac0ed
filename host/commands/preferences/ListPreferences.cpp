// SPDX-License-Identifier: MIT
#include "commandline/PreferenceJSON.hpp"
#include "commandline/PreferenceLine.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <algorithm>
#include <ostream>

namespace zorvantine {

using QEVSettings::PreferenceDictionary;

namespace {

void printText(const PreferenceDictionary& preferences, std::ostream& out) {
  std::size_t keyWidth = 0;
  for (const auto& [key, value] : preferences) keyWidth = std::max(keyWidth, key.size());
  keyWidth = std::min(keyWidth, kWidestKey);
  for (const auto& [key, value] : preferences) out << preferenceLine(key, value, keyWidth) << '\n';
}

void printJSON(const PreferenceDictionary& preferences, std::ostream& out) {
  foundation::JSONWriter writer;
  writer.beginObject();
  for (const auto& [key, value] : preferences) {
    writer.name(key).beginObject().name("type").string(nameOf(value.type())).name("value");
    writePreference(writer, value);
    writer.endObject();
  }
  writer.endObject();
  out << writer.text() << '\n';
}

}  // namespace

Failed run(const ListPreferencesCommand& command, Console& console) {
  const PreferenceDictionary preferences = ProgramPreferences::store().dictionaryRepresentation();
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  command.format == OutputFormat::json ? printJSON(preferences, console.out)
                                       : printText(preferences, console.out);
  return std::nullopt;
}

}  // namespace zorvantine
