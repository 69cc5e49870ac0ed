#include "commandline/Help.hpp"

#include "commands/Commands.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const HelpCommand&, Console& console) {
  console.out << helpText();
  return std::nullopt;
}

Failed run(const VersionCommand&, Console& console) {
  console.out << "zorvantine " << versionText() << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
