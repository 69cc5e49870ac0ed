#include "QEVSettings/preferences/HostIdentity.hpp"
#include "commandline/ExitCode.hpp"
#include "commandline/Help.hpp"
#include "commandline/Messages.hpp"
#include "commandline/Options.hpp"
#include "commands/Commands.hpp"
#include "foundation/UserDefaults.hpp"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using namespace zorvantine;
using foundation::UserDefaults;

int report(const Failure& failure, Messages& messages) {
  std::cout.flush();
  messages.say(failure.message);
  return static_cast<int>(failure.code);
}

// The person's own store is empty until something is stored. A file that was named and is not there
// is a mistake in the name.
Failed missingStore(const Options& options) {
  std::error_code error;
  if (!options.store || std::filesystem::symlink_status(*options.store, error).type() !=
                            std::filesystem::file_type::not_found) {
    return std::nullopt;
  }
  return Failure{.message = "there is no store " + options.store->string() +
                            "; check its name, or make it with prefs set or prefs import"};
}

// Opens the store as the command uses it, and says how it came to be open.
Failed openStore(const Options& options, Messages& messages) {
  if (options.store) UserDefaults::setStandardFile(*options.store);
  const bool changesNothing =
      options.storeUse == StoreUse::reads || options.storeUse == StoreUse::inspects;
  if (changesNothing) UserDefaults::setStandardAccess(UserDefaults::Access::readOnly);
  if (changesNothing || options.storeUse == StoreUse::follows) {
    if (auto failure = missingStore(options)) return failure;
  }
  if (!opensStore(options.storeUse)) return std::nullopt;
  messages.say(Console::store().opening().message);
  const auto failure = storeFailure(Console::store());
  if (!failure || options.storeUse != StoreUse::shows) return failure;
  messages.say(failure->message);
  return std::nullopt;
}

Failed carryOut(const Options& options, Messages& messages) {
  Failed failed = openStore(options, messages);
  if (failed) return failed;
  if (options.runsUntilEnded) messages.logDiagnosticsAsTheyCome();
  Console console{.in = std::cin, .out = std::cout, .outIsTerminal = ::isatty(STDOUT_FILENO) == 1};
  failed = options.invocation.run(console);
  // A store that had to be recovered meanwhile was opened again.
  if (opensStore(options.storeUse)) messages.say(Console::store().opening().message);
  // A command that fails says in its own words what is wrong.
  if (!failed) messages.logDiagnostics();
  return failed;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  QEVSettings::HostIdentity::set(
      {.id = "zorvantine", .displayName = "Zorvantine", .version = std::string(versionText())});
  // Outlives the store, which may still report something while it is closed.
  static Messages messages;
  const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const auto options = parseOptions(words);
  if (!options) {
    return report({.code = ExitCode::usage,
                   .message = options.error().message + "; zorvantine --help shows what there is"},
                  messages);
  }
  if (const auto failure = carryOut(*options, messages)) return report(*failure, messages);
  if (!std::cout.flush()) {
    return report({.message = "the result could not be written; make room for it, and try again"},
                  messages);
  }
  return EXIT_SUCCESS;
}
