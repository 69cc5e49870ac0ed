#include "commands/StartProgram.hpp"

#include "commands/ReplaceProcess.hpp"
#include "foundation/Bundle.hpp"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace zorvantine {

Failed startProgram(const std::string& name) {
  const auto folder = foundation::Bundle::mainBundle().folder();
  const auto installed = (folder / ZORVANTINE_PROGRAMS / name).lexically_normal();
  std::error_code error;
  replaceProcess(std::filesystem::exists(installed, error) ? installed : folder / name);
  return Failure{.message = "the program " + installed.string() + " cannot be started (" +
                            std::generic_category().message(errno) + "); install zorvantine again"};
}

}  // namespace zorvantine
