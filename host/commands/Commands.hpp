#pragma once

#include "commandline/ExitCode.hpp"
#include "commandline/Options.hpp"
#include "foundation/UserDefaults.hpp"

#include <iosfwd>
#include <optional>

namespace zorvantine {

// What a command works on.
struct Console {
  std::istream& in;
  std::ostream& out;
  bool outIsTerminal = false;

  // The process's store, open before a command runs that opens it.
  static foundation::UserDefaults& store() { return foundation::UserDefaults::standardUserDefaults(); }
};

// Each command in a file of its own. What they return is why they failed, or nothing.
using Failed = std::optional<Failure>;

Failed run(const ListPreferencesCommand& command, Console& console);
Failed run(const GetPreferenceCommand& command, Console& console);
Failed run(const SetPreferenceCommand& command, Console& console);
Failed run(const DeletePreferenceCommand& command, Console& console);
Failed run(const ImportPreferencesCommand& command, Console& console);
Failed run(const ExportPreferencesCommand& command, Console& console);
Failed run(const MigratePreferencesCommand& command, Console& console);
Failed run(const WatchPreferencesCommand& command, Console& console);
Failed run(const VerifyPreferencesCommand& command, Console& console);
Failed run(const ListAnalyzersCommand& command, Console& console);
Failed run(const ValidatePortsCommand& command, Console& console);
Failed run(const SettingsCommand& command, Console& console);
Failed run(const RunCommand& command, Console& console);
Failed run(const SnapshotCommand& command, Console& console);
Failed run(const DescribeCommand& command, Console& console);
Failed run(const HelpCommand& command, Console& console);
Failed run(const VersionCommand& command, Console& console);

// What is wrong with the store, as a failure; nothing while it is well.
Failed storeFailure(const foundation::UserDefaults& store);
Failure noSuchKey(std::string_view key);

}  // namespace zorvantine
