// SPDX-License-Identifier: MIT
#include "process/StartProgram.hpp"

#include "foundation/Bundle.hpp"
#include "foundation/Translation.hpp"
#include "process/ReplaceProcess.hpp"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace zorvantine {

using foundation::translated;

Failed startProgram(const std::string& name) {
  const auto folder = foundation::Bundle::mainBundle().folder();
  const auto installed = (folder / ZORVANTINE_PROGRAMS / name).lexically_normal();
  std::error_code error;
  replaceProcess(std::filesystem::exists(installed, error) ? installed : folder / name);
  const std::string reason = std::generic_category().message(errno);
  return Failure{.message =
                     translated("the program %1 cannot be started (%2); install zorvantine again",
                                {installed.string(), reason})};
}

}  // namespace zorvantine
