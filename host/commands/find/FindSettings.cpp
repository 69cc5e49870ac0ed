// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsIndex.hpp"
#include "catalogue/SearchedSample.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <limits>
#include <ostream>
#include <string>

namespace zorvantine {

using foundation::JSONWriter;
using QEVSettings::FoundSetting;

namespace {

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

void print(const FoundSetting& found, std::ostream& out) {
  out << onOneLine(found.title);
  if (const std::string place = QEVSettings::placeText(found); !place.empty())
    out << "  " << onOneLine(place);
  if (!found.key.empty()) out << "  " << onOneLine(found.key);
  out << '\n';
}

void writeTextOrNull(JSONWriter& writer, const std::string& text) {
  if (text.empty()) {
    writer.null();
  } else {
    writer.string(text);
  }
}

void write(JSONWriter& writer, const FoundSetting& found) {
  writer.beginObject().name("title").string(found.title).name("tab").string(found.place.tab);
  writeTextOrNull(writer.name("analyzer"), found.place.analyzer);
  writeTextOrNull(writer.name("key"), found.key);
  writer.endObject();
}

}  // namespace

Failed run(const FindCommand& command, Console& console) {
  QEVSettings::SettingsIndex index(searchedSample());
  index.complete();
  const std::string query = joined(command.words);
  const auto found =
      index.find(query, ProgramPreferences::inForce(), std::numeric_limits<std::size_t>::max())
          .best;
  if (command.format == OutputFormat::json) {
    JSONWriter writer;
    writer.beginArray();
    for (const FoundSetting& each : found) write(writer, each);
    console.out << writer.endArray().text() << '\n';
  } else {
    for (const FoundSetting& each : found) print(each, console.out);
  }
  if (!found.empty()) return std::nullopt;
  return Failure{
      .code = ExitCode::noSuchKey,
      .message = foundation::translated("no setting has “%1”; try fewer or other words", {query})};
}

}  // namespace zorvantine
