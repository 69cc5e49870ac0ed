// SPDX-License-Identifier: MIT
#include "QEVSettings/PreferenceListReader.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/PreferenceJSON.hpp"
#include "commands/Commands.hpp"
#include "foundation/Files.hpp"
#include "foundation/JSONWriter.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <unistd.h>

#include <cstdlib>
#include <ostream>
#include <system_error>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::Result;
using QEVSettings::PreferenceDictionary;

namespace {

constexpr std::size_t kLargestText = std::size_t{1} << 28;

// One key a line, in the form of prefs list --format json.
std::string editableText(const PreferenceDictionary& values) {
  std::string text = "{";
  for (const auto& [key, value] : values) {
    foundation::JSONWriter writer;
    writer.beginObject().name(key).beginObject().name("type").string(nameOf(value.type()));
    writePreference(writer.name("value"), value);
    const std::string entry = writer.endObject().endObject().takeText();
    text += (text.size() == 1 ? "\n  " : ",\n  ") + entry.substr(1, entry.size() - 2);
  }
  return text + "\n}\n";
}

Result<std::filesystem::path> writeTemporary(const std::string& text) {
  std::error_code error;
  auto folder = std::filesystem::temp_directory_path(error);
  std::string name = (folder / "zorvantine-XXXXXX.json").string();
  const int file = ::mkstemps(name.data(), 5);
  if (file >= 0) ::close(file);
  auto outcome = file >= 0 ? foundation::writeFile(name, text) : Outcome(Error{""});
  if (!outcome)
    return Error{"no temporary file can be written in " + folder.string() + "; set TMPDIR"};
  return std::filesystem::path(name);
}

Outcome runEditor(const std::filesystem::path& file) {
  const char* editor = std::getenv("VISUAL");
  if (editor == nullptr || *editor == '\0') editor = std::getenv("EDITOR");
  if (editor == nullptr || *editor == '\0')
    return Error{"no editor is named; set EDITOR, as in EDITOR=nano"};
  ::setenv("ZORVANTINE_EDITED", file.c_str(), 1);
  const std::string command = std::string(editor) + " \"$ZORVANTINE_EDITED\"";
  if (std::system(command.c_str()) == 0) return done();
  return Error{"the editor “" + std::string(editor) + "” failed, so nothing was stored"};
}

struct Change {
  PreferenceDictionary values;
  std::vector<std::string> removed;
};

// What was edited, or why it cannot be stored. Keys that were not edited are not looked at, so that
// a change by another process meanwhile stays.
Result<Change> changeBetween(const PreferenceDictionary& before,
                             const PreferenceDictionary& after) {
  Change change;
  const auto mayChange = [](const std::string& key) -> Outcome {
    if (const auto failure = lockedFailure(key)) return Error{failure->message};
    return done();
  };
  for (const auto& [key, value] : after) {
    const auto found = before.find(key);
    if (found != before.end() && found->second == value) continue;
    if (auto outcome = mayChange(key); !outcome) return outcome.error();
    if (const auto* known = hostCatalogue().find(key)) {
      if (auto outcome = checkValue(*known, value); !outcome) return outcome.error();
    }
    change.values.emplace(key, value);
  }
  for (const auto& [key, value] : before) {
    if (after.contains(key)) continue;
    if (auto outcome = mayChange(key); !outcome) return outcome.error();
    change.removed.push_back(key);
  }
  return change;
}

Result<Change> readChange(const PreferenceDictionary& before, const std::filesystem::path& file) {
  auto text = foundation::readFile(file, kLargestText);
  if (!text) return text.error();
  const auto after = QEVSettings::readWrittenPreferenceList(*std::move(text));
  if (!after) return after.error();
  return changeBetween(before, *after);
}

}  // namespace

Failed run(const EditPreferencesCommand&, Console& console) {
  auto& store = ProgramPreferences::store();
  const PreferenceDictionary before = store.dictionaryRepresentation();
  if (auto failure = storeFailure(store)) return failure;
  const auto file = writeTemporary(editableText(before));
  if (!file) return Failure{.message = file.error().message};
  std::error_code error;
  if (const auto edited = runEditor(*file); !edited) {
    std::filesystem::remove(*file, error);
    return Failure{.message = edited.error().message};
  }
  const auto change = readChange(before, *file);
  if (!change) {
    return Failure{.message = change.error().message +
                              "; nothing was stored, and your text is in " + file->string()};
  }
  if (const auto outcome = store.applyAll(change->values); !outcome)
    return Failure{.message = outcome.error().message + "; your text is in " + file->string()};
  for (const std::string& key : change->removed) store.removeObject(key);
  std::filesystem::remove(*file, error);
  const std::size_t count = change->values.size() + change->removed.size();
  console.out << "Changed " << count << (count == 1 ? " key" : " keys") << ".\n";
  return storeFailure(store);
}

}  // namespace zorvantine
