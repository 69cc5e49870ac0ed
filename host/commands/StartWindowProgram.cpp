#include "commands/Commands.hpp"
#include "commands/ReplaceProcess.hpp"
#include "foundation/Bundle.hpp"

#include <cerrno>
#include <filesystem>
#include <system_error>

// The commands of the window in the program without Qt. Each starts the program that links Qt,
// which reads the same command line and opens the store itself.

namespace zorvantine {

namespace {

constexpr const char* kNextToThisProgram = "zorvantine-window";

Failed startWindowProgram() {
  const auto folder = foundation::Bundle::mainBundle().folder();
  const auto installed = (folder / ZORVANTINE_WINDOW_PROGRAM).lexically_normal();
  std::error_code error;
  replaceProcess(std::filesystem::exists(installed, error) ? installed
                                                           : folder / kNextToThisProgram);
  return Failure{.message = "the program that shows the window, " + installed.string() +
                            ", cannot be started (" + std::generic_category().message(errno) +
                            "); install zorvantine again"};
}

}  // namespace

Failed run(const SettingsCommand&, Console&) { return startWindowProgram(); }

Failed run(const RunCommand&, Console&) { return startWindowProgram(); }

Failed run(const SnapshotCommand&, Console&) { return startWindowProgram(); }

}  // namespace zorvantine
