// SPDX-License-Identifier: MIT
#include "commands/help/HelpParts.hpp"

#include "commands/help/Help.hpp"

#include <algorithm>

namespace zorvantine {

namespace {

// "(--string|--int) VALUE"; empty when the command has no such options.
std::string oneOf(const std::vector<Option>& options) {
  std::string names;
  std::string_view value;
  for (const Option& option : options) {
    if (option.presence != Presence::oneOf) continue;
    names += (names.empty() ? "" : "|") + std::string(option.name);
    value = option.value;
  }
  return names.empty() ? names : '(' + names + ") " + std::string(value);
}

}  // namespace

std::string nameAndValue(const Option& option) {
  return std::string(option.name) + (option.value.empty() ? "" : " ") + std::string(option.value);
}

std::vector<Option> windowOptions() {
  std::vector<Option> options = commandTable().front().prepare().arguments.options;
  std::erase_if(options, [](const Option& option) { return option.presence != Presence::window; });
  return options;
}

std::string synopsis(const CommandEntry& entry) {
  const Arguments arguments = entry.prepare().arguments;
  std::string text(entry.name);
  for (const Option& option : arguments.options) {
    if (option.presence == Presence::required) text += ' ' + nameAndValue(option);
  }
  for (const Operand& operand : arguments.operands) {
    const std::string name(operand.name);
    text += operand.repeats      ? " [" + name + "...]"
            : operand.isOptional ? " [" + name + ']'
                                 : ' ' + name;
  }
  const bool hasOptional = !arguments.operands.empty() && arguments.operands.back().isOptional;
  if (const std::string choice = oneOf(arguments.options); !choice.empty())
    text += hasOptional ? " [" + choice + ']' : ' ' + choice;
  for (const Option& option : arguments.options) {
    if (option.presence == Presence::optional) text += " [" + nameAndValue(option) + ']';
  }
  const bool hasWindow = std::ranges::any_of(
      arguments.options, [](const Option& option) { return option.presence == Presence::window; });
  return hasWindow ? text + " [WINDOW]" : text;
}

}  // namespace zorvantine
