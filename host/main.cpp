#include "QEVLog/QEVLog.hpp"
#include "commandline/ExitCode.hpp"
#include "commandline/Options.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/Diagnostics.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <vector>

namespace {

using namespace zorvantine;

int report(const Failure& failure) {
  std::cout.flush();
  std::cerr << "zorvantine: " << onOneLine(failure.message) << std::endl;
  return static_cast<int>(failure.code);
}

Failed carryOut(const Options& options) {
  foundation::setDiagnosticSink([](std::string_view line) { QEVLog::logMessage(line, "reportDiagnostic(_:)"); });
  if (options.store) foundation::UserDefaults::setStandardFile(*options.store);
  Console console{.in = std::cin, .out = std::cout};
  return std::visit([&console](const auto& command) { return run(command, console); }, options.command);
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
