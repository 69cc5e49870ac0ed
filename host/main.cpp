#include "QEVLog/QEVLog.hpp"
#include "commandline/ExitCode.hpp"
#include "commandline/Options.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/Diagnostics.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstdlib>
#include <iostream>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace {

using namespace zorvantine;

int report(const Failure& failure) {
  std::cout.flush();
  std::cerr << "zorvantine: " << onOneLine(failure.message) << std::endl;
  return static_cast<int>(failure.code);
}

void logDiagnostic(std::string_view line) { QEVLog::logMessage(line, "reportDiagnostic(_:)"); }

bool isLongRunning(const Command& command) {
  return std::holds_alternative<SettingsCommand>(command) || std::holds_alternative<RunCommand>(command) ||
         std::holds_alternative<WatchPreferencesCommand>(command);
}

// What a command that is soon over finds out on its way is logged when it succeeds: one that fails says
// in its own words what is wrong, once.
class DiagnosticsUntilDone {
public:
  DiagnosticsUntilDone() {
    foundation::setDiagnosticSink([lines = lines_](std::string_view line) {
      const std::scoped_lock lock(lines->mutex);
      lines->all.emplace_back(line);
    });
  }

  void log() const {
    const std::scoped_lock lock(lines_->mutex);
    for (const std::string& line : lines_->all) logDiagnostic(line);
  }

private:
  struct Lines {
    std::mutex mutex;
    std::vector<std::string> all;
  };
  std::shared_ptr<Lines> lines_ = std::make_shared<Lines>();
};

Failed carryOut(const Options& options) {
  if (options.store) foundation::UserDefaults::setStandardFile(*options.store);
  Console console{.in = std::cin, .out = std::cout};
  const auto perform = [&] {
    return std::visit([&console](const auto& command) { return run(command, console); }, options.command);
  };
  if (isLongRunning(options.command)) {
    foundation::setDiagnosticSink(logDiagnostic);
    return perform();
  }
  const DiagnosticsUntilDone diagnostics;
  Failed failed = perform();
  if (!failed) diagnostics.log();
  return failed;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const auto options = parseOptions(words);
  if (!options) {
    return report(
        {.code = ExitCode::usage, .message = options.error().message + "; zorvantine --help shows what there is"});
  }
  if (const auto failure = carryOut(*options)) return report(*failure);
  if (!std::cout.flush())
    return report({.message = "the result could not be written; make room for it, and try again"});
  return EXIT_SUCCESS;
}
