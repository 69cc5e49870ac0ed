#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const GetPreferenceCommand& command, Console& console) {
  const auto value = Console::store().objectForKey(command.key);
  if (auto failure = storeFailure(Console::store())) return failure;
  if (!value) return noSuchKey(command.key);
  console.out << textForm(*value) << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
