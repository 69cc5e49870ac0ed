// SPDX-License-Identifier: MIT
#include "QEVSettings/ValueReader.hpp"
#include "commands/CommandEntry.hpp"
#include "commands/SharedArguments.hpp"
#include "foundation/Translation.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::PropertyListFormat;
using foundation::translated;
using QEVSettings::PreferenceValue;

namespace {

Arguments listArguments(ListPreferencesCommand& command) {
  return {.options = {formatOption(command.format)}};
}

Operand keysOperand(std::vector<std::string>& keys) {
  return {.name = "KEY",
          .needs = {},
          .take =
              [&keys](std::string_view word) {
                auto key = readKey(word);
                if (!key) return Outcome(key.error());
                keys.push_back(*std::move(key));
                return done();
              },
          .repeats = true};
}

Arguments describeArguments(DescribePreferencesCommand& command) {
  return {.options = {formatOption(command.format)}, .operands = {keysOperand(command.keys)}};
}

Option partOption(std::string_view name, std::string_view help, GetPreferenceCommand::Part part,
                  GetPreferenceCommand& command) {
  return {.name = name, .value = {}, .help = help, .take = [&command, part](std::string_view) {
            if (command.part != GetPreferenceCommand::Part::value)
              return Outcome(Error{"give --default or --origin, not both"});
            command.part = part;
            return done();
          }};
}

Arguments getArguments(GetPreferenceCommand& command) {
  using Part = GetPreferenceCommand::Part;
  return {.options = {partOption("--default", "Print the default instead of the value in force.",
                                 Part::standard, command),
                      partOption("--origin",
                                 "Print where the value in force comes from: locked, command-line, "
                                 "user, administrator or default.",
                                 Part::origin, command)},
          .operands = {keyOperand(command.key)}};
}

Arguments deleteArguments(DeletePreferenceCommand& command) {
  return {.operands = {keyOperand(command.key)}};
}

using ReadValue = std::function<foundation::Result<PreferenceValue>(std::string_view)>;

Option valueOption(std::string_view name, std::string_view help, ReadValue read,
                   SetPreferenceCommand& command) {
  return {.name = name,
          .value = "VALUE",
          .help = help,
          .presence = Presence::oneOf,
          .take = [&command, read = std::move(read)](std::string_view text) {
            if (command.value) return Outcome(Error{translated("give one value")});
            auto value = read(text);
            if (!value) return Outcome(value.error());
            command.value = *std::move(value);
            return done();
          }};
}

ReadValue readerOf(PreferenceValue::Type type) {
  return [type](std::string_view text) { return QEVSettings::readValue(type, text); };
}

Arguments setArguments(SetPreferenceCommand& command) {
  using Type = PreferenceValue::Type;
  return {
      .options = {valueOption("--string", "Text.", readerOf(Type::string), command),
                  valueOption("--int", "A whole number of 64 bits.", readerOf(Type::integer),
                              command),
                  valueOption("--bool", "true or false.", readerOf(Type::boolean), command),
                  valueOption("--real", "A number, inf or -inf.", readerOf(Type::real), command),
                  valueOption("--data", "Bytes, in base64.", readerOf(Type::data), command),
                  valueOption("--date", "A date in UTC, as in 2026-03-01T12:30:00Z.",
                              readerOf(Type::date), command),
                  valueOption("--json",
                              "JSON: an array, a dictionary, or any other value but null.",
                              QEVSettings::readJSONValue, command),
                  flag("--force",
                       "Store a value that does not fit the setting, and any key without a word.",
                       command.isForced, true)},
      .operands = {keyOperand(command.key),
                   {.name = "VALUE",
                    .needs = "a VALUE",
                    .take =
                        [&command](std::string_view word) {
                          command.text = word;
                          return done();
                        },
                    .isOptional = true}},
      .check = [&command] {
        if (command.value.has_value() != command.text.has_value()) return done();
        return Outcome(
            Error{translated("prefs set needs one value: VALUE alone for a setting, or --string, "
                             "--int, --bool, --real, --data, --date or --json, and VALUE")});
      }};
}

Arguments resetArguments(ResetPreferencesCommand& command) {
  Option analyzer{.name = "--analyzer",
                  .value = "NAME",
                  .help = "Reset every setting of the analyzer of that name or title.",
                  .take = [&command](std::string_view name) {
                    command.analyzer = name;
                    return done();
                  }};
  return {.options = {std::move(analyzer),
                      flag("--all", "Reset every setting.", command.resetsAll, true)},
          .operands = {keysOperand(command.keys)},
          .check = [&command] {
            const int given = (command.keys.empty() ? 0 : 1) + (command.analyzer.empty() ? 0 : 1) +
                              (command.resetsAll ? 1 : 0);
            if (given == 1) return done();
            return Outcome(Error{"prefs reset needs KEYs, --analyzer NAME or --all"});
          }};
}

Arguments diffArguments(DiffPreferencesCommand& command) {
  return {.operands = {{.name = "PROFILE|FILE",
                        .needs = {},
                        .take =
                            [&command](std::string_view word) {
                              if (word.empty())
                                return Outcome(Error{"a PROFILE or FILE needs a name"});
                              command.other = word;
                              return done();
                            },
                        .isOptional = true}}};
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
  return {.options = {formatOption(command.format)}, .operands = {keysOperand(command.keys)}};
}

Operand optionalKeyOperand(std::string& key) {
  Operand operand = keyOperand(key);
  operand.needs = {};
  operand.isOptional = true;
  return operand;
}

Arguments historyArguments(ShowHistoryCommand& command) {
  return {.options = {formatOption(command.format)}, .operands = {optionalKeyOperand(command.key)}};
}

Outcome readCount(std::string_view word, std::size_t& count) {
  const auto number = QEVSettings::readValue(PreferenceValue::Type::integer, word);
  const auto wanted = number ? number->asInteger() : std::nullopt;
  constexpr auto most = static_cast<std::int64_t>(foundation::kMostRememberedChanges);
  if (!wanted || *wanted < 1 || *wanted > most)
    return Error{translated("N is a number of changes from 1 to %1", {std::to_string(most)})};
  count = static_cast<std::size_t>(*wanted);
  return done();
}

Arguments undoArguments(UndoChangesCommand& command) {
  const auto isCounted = std::make_shared<bool>(false);
  Option time{.name = "--to",
              .value = "TIME",
              .help = "Undo every change after this time, in UTC, as in 2026-03-01T12:30:00Z.",
              .take = [&command](std::string_view text) {
                auto date = QEVSettings::readValue(PreferenceValue::Type::date, text);
                if (!date) return Outcome(date.error());
                command.time = date->asDate();
                return done();
              }};
  return {.options = {std::move(time)},
          .operands = {{.name = "N",
                        .needs = {},
                        .take =
                            [&command, isCounted](std::string_view word) {
                              *isCounted = true;
                              return readCount(word, command.count);
                            },
                        .isOptional = true}},
          .check = [&command, isCounted] {
            if (!*isCounted || !command.time) return done();
            return Outcome(Error{translated("give N or --to, not both")});
          }};
}

template <class Command>
Arguments noArguments(Command&) {
  return {};
}

// One setting or several.
std::vector<CommandEntry> settingCommands() {
  constexpr auto chapter = Chapter::preferences;
  return {
      command({.name = "prefs list",
               .chapter = chapter,
               .help = "Print every key in order, with the type of its value.",
               .storeUse = StoreUse::reads},
              listArguments),
      command({.name = "prefs describe",
               .chapter = chapter,
               .help = "Print what is known about settings: type, limits, default, purpose, the "
                       "value in force, and who set it; of all settings, or of the keys named.",
               .storeUse = StoreUse::reads},
              describeArguments),
      command({.name = "prefs get",
               .chapter = chapter,
               .help = "Print the value in force; data in base64. A setting that nobody set "
                       "answers with its default. On a terminal, control characters are escaped.",
               .storeUse = StoreUse::reads},
              getArguments),
      command({.name = "prefs set",
               .chapter = chapter,
               .help = "Store a value of the setting's type, or of the type that an option names. "
                       "A value that does not fit the setting is refused.",
               .storeUse = StoreUse::writes},
              setArguments),
      command({.name = "prefs reset",
               .chapter = chapter,
               .help = "Remove your own values, so that the defaults are in force. A list of "
                       "protocols becomes the analyzer's factory list.",
               .storeUse = StoreUse::writes},
              resetArguments),
      command({.name = "prefs diff",
               .chapter = chapter,
               .help = "Print what differs from the defaults, or from another profile, store or "
                       "exported list.",
               .storeUse = StoreUse::reads},
              diffArguments),
      command({.name = "prefs edit",
               .chapter = chapter,
               .help = "Open your own values as JSON in $EDITOR, and store what was changed; all "
                       "of it or nothing.",
               .storeUse = StoreUse::writes},
              noArguments<EditPreferencesCommand>),
      command({.name = "prefs delete",
               .chapter = chapter,
               .help = "Remove a key.",
               .storeUse = StoreUse::writes},
              deleteArguments),
  };
}

// The whole store.
std::vector<CommandEntry> storeCommands() {
  constexpr auto chapter = Chapter::preferences;
  return {
      command({.name = "prefs import",
               .chapter = chapter,
               .help = "Take over every key of a property list, XML or binary, or of what prefs "
                       "list --format json printed; all of them or none. A FILE of - is standard "
                       "input. Values that an older release wrote are brought up to date. A list "
                       "of a newer release is refused. The list's own schema version is not taken "
                       "over. A property list holds at most 1,048,576 values, and a FILE 1 GB. "
                       "Settings that an administrator locked are left out, and named. In JSON, "
                       "data and dates inside an array or a dictionary are text.",
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
      command({.name = "prefs history",
               .chapter = chapter,
               .help = "Print what was changed, the newest change first: when, the key, the values "
                       "before and after, and the program; of all keys, or of the key named. The "
                       "store remembers 1,000 changes, or those of 90 days.",
               .storeUse = StoreUse::reads},
              historyArguments),
      command({.name = "prefs undo",
               .chapter = chapter,
               .help = "Take back the newest N changes that prefs history shows, or one; all of "
                       "them or none. Undoing is a change that can be undone in turn.",
               .storeUse = StoreUse::writes},
              undoArguments),
      command({.name = "prefs verify",
               .chapter = chapter,
               .help = "Check the store, and say how it is. Changes nothing. Keys in the form of "
                       "an older release are named, with what to do about them, and so are values "
                       "that do not fit their settings.",
               .storeUse = StoreUse::inspects},
              noArguments<VerifyPreferencesCommand>),
  };
}

}  // namespace

std::vector<CommandEntry> preferencesCommands() {
  std::vector<CommandEntry> commands = settingCommands();
  for (CommandEntry& each : storeCommands()) commands.push_back(std::move(each));
  return commands;
}

}  // namespace zorvantine
