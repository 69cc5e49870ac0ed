#include "commands/RunCommandLine.hpp"
#include "foundation/Bundle.hpp"

#include <filesystem>
#include <system_error>

namespace {

// In an installed tree the program is in libexec, and shares the resources of zorvantine.
void useInstalledResources() {
  using foundation::Bundle;
  const auto resources =
      (Bundle::mainBundle().folder() / ZORVANTINE_WINDOW_RESOURCES).lexically_normal();
  std::error_code error;
  if (std::filesystem::is_directory(resources, error)) Bundle::setMainResourceFolder(resources);
}

}  // namespace

int main(int argc, char** argv) {
  useInstalledResources();
  return zorvantine::runCommandLine(argc, argv, zorvantine::Program::window);
}
