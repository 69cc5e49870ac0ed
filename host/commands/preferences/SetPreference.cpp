#include "commands/Commands.hpp"

namespace zorvantine {

Failed run(const SetPreferenceCommand& command, Console&) {
  Console::store().setObject(*command.value, command.key);
  return storeFailure(Console::store());
}

}  // namespace zorvantine
