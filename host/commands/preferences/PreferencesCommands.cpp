#include "commandline/Translation.hpp"
#include "commandline/ValueReader.hpp"
#include "commands/CommandEntry.hpp"
#include "commands/SharedArguments.hpp"

#include <utility>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::PropertyListFormat;
using QEVSettings::PreferenceValue;

namespace {

Operand fileOperand(std::filesystem::path& file) {
  return {.name = "FILE", .needs = "a FILE", .take = [&file](std::string_view word) {
            if (word.empty()) return Outcome(Error{translated("a FILE needs a name")});
            file = word;
            return done();
          }};
}

Arguments listArguments(ListPreferencesCommand& command) {
  return {.options = {formatOption(command.format)}};
}

Arguments getArguments(GetPreferenceCommand& command) {
  return {.operands = {keyOperand(command.key)}};
}

Arguments deleteArguments(DeletePreferenceCommand& command) {
  return {.operands = {keyOperand(command.key)}};
}

Option valueOption(std::string_view name, std::string_view help, PreferenceValue::Type type,
                   SetPreferenceCommand& command) {
  return {.name = name,
          .value = "VALUE",
          .help = help,
          .presence = Presence::oneOf,
          .take = [&command, type](std::string_view text) {
            if (command.value) return Outcome(Error{translated("give one value")});
            auto value = readValue(type, text);
            if (!value) return Outcome(value.error());
            command.value = *std::move(value);
            return done();
          }};
}

Option jsonOption(SetPreferenceCommand& command) {
  return {.name = "--json",
          .value = "VALUE",
          .help = "JSON: an array, a dictionary, or any other value but null.",
          .presence = Presence::oneOf,
          .take = [&command](std::string_view text) {
            if (command.value) return Outcome(Error{translated("give one value")});
            auto value = readJSONValue(text);
            if (!value) return Outcome(value.error());
            command.value = *std::move(value);
            return done();
          }};
}

Arguments setArguments(SetPreferenceCommand& command) {
  using Type = PreferenceValue::Type;
  return {.options = {valueOption("--string", "Text.", Type::string, command),
                      valueOption("--int", "A whole number of 64 bits.", Type::integer, command),
                      valueOption("--bool", "true or false.", Type::boolean, command),
                      valueOption("--real", "A number, inf or -inf.", Type::real, command),
                      valueOption("--data", "Bytes, in base64.", Type::data, command),
                      valueOption("--date", "A date in UTC, as in 2026-03-01T12:30:00Z.",
                                  Type::date, command),
                      jsonOption(command)},
          .operands = {keyOperand(command.key)},
          .check = [&command] {
            if (command.value) return done();
            return Outcome(Error{
                translated("prefs set needs a value: --string, --int, --bool, --real, --data, "
                           "--date or --json, and VALUE")});
          }};
}

Arguments importArguments(ImportPreferencesCommand& command) {
  return {.operands = {fileOperand(command.file)}};
}

Arguments exportArguments(ExportPreferencesCommand& command) {
  return {.options = {choice<PropertyListFormat>(
              "--format", "xml|binary", "The form of the property list; XML when it is left out.",
              command.format,
              {{"xml", PropertyListFormat::xml}, {"binary", PropertyListFormat::binary}})},
          .operands = {fileOperand(command.file)}};
}

Arguments watchArguments(WatchPreferencesCommand& command) {
  return {.options = {formatOption(command.format)},
          .operands = {{.name = "KEY",
                        .needs = {},
                        .take =
                            [&command](std::string_view word) {
                              auto key = readKey(word);
                              if (!key) return Outcome(key.error());
                              command.keys.push_back(*std::move(key));
                              return done();
                            },
                        .repeats = true}}};
}

template <class Command>
Arguments noArguments(Command&) {
  return {};
}

}  // namespace

std::vector<CommandEntry> preferencesCommands() {
  constexpr auto chapter = Chapter::preferences;
  return {
      command({.name = "prefs list",
               .chapter = chapter,
               .help = "Print every key in order, with the type of its value.",
               .storeUse = StoreUse::reads},
              listArguments),
      command(
          {.name = "prefs get",
           .chapter = chapter,
           .help =
               "Print one value; data in base64. On a terminal, control characters are escaped.",
           .storeUse = StoreUse::reads},
          getArguments),
      command({.name = "prefs set",
               .chapter = chapter,
               .help = "Store a value of the type that the option names.",
               .storeUse = StoreUse::writes},
              setArguments),
      command({.name = "prefs delete",
               .chapter = chapter,
               .help = "Remove a key.",
               .storeUse = StoreUse::writes},
              deleteArguments),
      command(
          {.name = "prefs import",
           .chapter = chapter,
           .help =
               "Take over every key of a property list, XML or binary, or of what prefs list "
               "--format json printed; all of them or none. A FILE of - is standard input. Values "
               "that an older release wrote are brought up to date. A list of a newer release is "
               "refused. The list's own schema version is not taken over. A property list "
               "holds at most 1,048,576 values, and a FILE 1 GB. In JSON, data and dates inside an "
               "array or a dictionary are text.",
           .storeUse = StoreUse::writes},
          importArguments),
      command({.name = "prefs export",
               .chapter = chapter,
               .help = "Write every key to a property list. A FILE of - is standard output.",
               .storeUse = StoreUse::reads},
              exportArguments),
      command({.name = "prefs migrate",
               .chapter = chapter,
               .help = "Bring what an older release stored up to date. What was rewritten is told "
                       "on standard error.",
               .storeUse = StoreUse::writes},
              noArguments<MigratePreferencesCommand>),
      command({.name = "prefs watch",
               .chapter = chapter,
               .help = "Print each change, one a line, until interrupted; of all keys, or of the "
                       "keys named.",
               .storeUse = StoreUse::follows,
               .runsUntilEnded = true},
              watchArguments),
      command({.name = "prefs verify",
               .chapter = chapter,
               .help = "Check the store, and say how it is. Changes nothing. Keys in the form of "
                       "an older release are "
                       "named, with what to do about them.",
               .storeUse = StoreUse::inspects},
              noArguments<VerifyPreferencesCommand>),
  };
}

}  // namespace zorvantine
