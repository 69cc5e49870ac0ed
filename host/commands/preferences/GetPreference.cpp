#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const GetPreferenceCommand& command, Console& console) {
  const auto value = Console::store().objectForKey(command.key);
  if (auto failure = storeFailure(Console::store())) return failure;
  if (!value) return noSuchKey(command.key);
  // Only a terminal needs escapes; a program gets the stored text.
  const std::string text = textForm(*value);
  console.out << (console.outIsTerminal ? onOneLine(text) : text) << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
