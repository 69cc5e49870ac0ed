// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "commandline/ExitCode.hpp"
#include "commandline/WindowOptions.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// For each command, the values of its arguments and the function that carries it out. The function
// stands in a file of its own. CommandEntry.hpp declares the table of commands.

namespace zorvantine {

enum class Appearance { light, dark };
enum class OutputFormat { text, json };
enum class HelpFormat { text, manual, bash, zsh, fish };

// The streams that a command works with. Its store is that of ProgramPreferences.
struct Console {
  std::istream& in;
  std::ostream& out;
  bool outIsTerminal = false;
};

struct SettingsCommand {
  Tab tab = Tab::general;
  WindowOptions window;
};
Failed run(const SettingsCommand& command, Console& console);

struct RunCommand {
  WindowOptions window;
};
Failed run(const RunCommand& command, Console& console);

struct SnapshotCommand {
  std::filesystem::path folder;
  // Nothing stands for every tab.
  std::optional<Tab> tab;
  // Nothing stands for the appearance that the user chose.
  std::optional<Appearance> appearance;
  int scale = 1;
  WindowOptions window;
};
Failed run(const SnapshotCommand& command, Console& console);

struct DescribeCommand {
  Tab tab = Tab::general;
  OutputFormat format = OutputFormat::text;
  WindowOptions window;
};
Failed run(const DescribeCommand& command, Console& console);

struct FindCommand {
  std::vector<std::string> words;
  OutputFormat format = OutputFormat::text;
};
Failed run(const FindCommand& command, Console& console);

struct ListPreferencesCommand {
  OutputFormat format = OutputFormat::text;
};
Failed run(const ListPreferencesCommand& command, Console& console);

struct DescribePreferencesCommand {
  std::vector<std::string> keys;  // empty for every setting
  OutputFormat format = OutputFormat::text;
};
Failed run(const DescribePreferencesCommand& command, Console& console);

struct GetPreferenceCommand {
  enum class Part { value, standard, origin };

  std::string key;
  Part part = Part::value;
};
Failed run(const GetPreferenceCommand& command, Console& console);

struct SetPreferenceCommand {
  std::string key;
  // One of the two is set when the arguments have been read.
  std::optional<QEVSettings::PreferenceValue> value;  // of a type that was named
  std::optional<std::string> text;                    // of the type of the setting
  bool isForced = false;
};
Failed run(const SetPreferenceCommand& command, Console& console);

struct DeletePreferenceCommand {
  std::string key;
};
Failed run(const DeletePreferenceCommand& command, Console& console);

struct ResetPreferencesCommand {
  // One of the three is given.
  std::vector<std::string> keys;
  std::string analyzer;
  bool resetsAll = false;
};
Failed run(const ResetPreferencesCommand& command, Console& console);

struct DiffPreferencesCommand {
  std::string other;  // a profile or a file; empty for the defaults
};
Failed run(const DiffPreferencesCommand& command, Console& console);

struct EditPreferencesCommand {};
Failed run(const EditPreferencesCommand& command, Console& console);

struct ImportPreferencesCommand {
  std::filesystem::path file;
};
Failed run(const ImportPreferencesCommand& command, Console& console);

struct ExportPreferencesCommand {
  std::filesystem::path file;
  foundation::PropertyListFormat format = foundation::PropertyListFormat::xml;
};
Failed run(const ExportPreferencesCommand& command, Console& console);

struct MigratePreferencesCommand {};
Failed run(const MigratePreferencesCommand& command, Console& console);

struct WatchPreferencesCommand {
  std::vector<std::string> keys;  // empty for every key
  OutputFormat format = OutputFormat::text;
};
Failed run(const WatchPreferencesCommand& command, Console& console);

struct ShowHistoryCommand {
  std::string key;  // empty for every key
  OutputFormat format = OutputFormat::text;
};
Failed run(const ShowHistoryCommand& command, Console& console);

struct UndoChangesCommand {
  std::size_t count = 1;
  // Takes back what was changed after this time, whatever the count.
  std::optional<QEVSettings::PreferenceValue::Date> time;
};
Failed run(const UndoChangesCommand& command, Console& console);

struct VerifyPreferencesCommand {};
Failed run(const VerifyPreferencesCommand& command, Console& console);

struct ListProfilesCommand {
  OutputFormat format = OutputFormat::text;
};
Failed run(const ListProfilesCommand& command, Console& console);

struct CreateProfileCommand {
  std::string name;
  std::string from;  // a profile to begin with; empty for none
};
Failed run(const CreateProfileCommand& command, Console& console);

struct RenameProfileCommand {
  std::string name;
  std::string newName;
};
Failed run(const RenameProfileCommand& command, Console& console);

struct DeleteProfileCommand {
  std::string name;
};
Failed run(const DeleteProfileCommand& command, Console& console);

struct ExportProfileCommand {
  std::string name;
  std::filesystem::path file;
};
Failed run(const ExportProfileCommand& command, Console& console);

struct ImportProfileCommand {
  std::string name;
  std::filesystem::path file;
};
Failed run(const ImportProfileCommand& command, Console& console);

struct ListAnalyzersCommand {
  OutputFormat format = OutputFormat::text;
};
Failed run(const ListAnalyzersCommand& command, Console& console);

struct ValidatePortsCommand {
  // "-" stands for standard input.
  std::string text;
  OutputFormat format = OutputFormat::text;
};
Failed run(const ValidatePortsCommand& command, Console& console);

struct HelpCommand {
  // The name of a command, or its first word; empty for everything.
  std::string topic;
  HelpFormat format = HelpFormat::text;
};
Failed run(const HelpCommand& command, Console& console);

struct VersionCommand {};
Failed run(const VersionCommand& command, Console& console);

// The failure of a change to a key that an administrator has locked; nothing when it is not locked.
Failed lockedFailure(std::string_view key);

// The problem that the store reports, as a failure; nothing when there is none.
Failed storeFailure(const foundation::UserDefaults& store);
Failure noSuchKey(std::string_view key);

}  // namespace zorvantine
