// SPDX-License-Identifier: MIT
#include "commands/completions/CompletionTable.hpp"

#include "commands/Options.hpp"

#include <algorithm>
#include <utility>

namespace zorvantine {

namespace {

// Adds a word once.
void add(std::vector<std::string_view>& words, std::string_view word) {
  if (std::ranges::find(words, word) == words.end()) words.push_back(word);
}

// The first words of all commands that begin with some words.
std::vector<std::string_view> nextWords(std::string_view words) {
  std::vector<std::string_view> next;
  for (const CommandEntry& entry : commandTable()) {
    std::string_view rest = entry.name;
    if (!words.empty()) {
      if (!rest.starts_with(std::string(words) + ' ')) continue;
      rest.remove_prefix(words.size() + 1);
    }
    add(next, rest.substr(0, rest.find(' ')));
  }
  return next;
}

bool namesFiles(std::string_view value) { return value == "FILE" || value == "DIR"; }

std::vector<CompletedOption> optionsOf(std::vector<Option> options) {
  ProgramOptions program;
  for (Option& option : programOptions(program)) options.push_back(std::move(option));
  std::vector<CompletedOption> completed;
  for (const Option& option : options) {
    if (option.help.empty()) continue;
    std::vector<std::string_view> values = option.choices;
    if (namesFiles(option.value)) values = {option.value};
    if (option.value == "NAME" && option.name != "--analyzer") values = {"PROFILE"};
    completed.push_back({.name = option.name,
                         .help = option.help,
                         .takesValue = !option.value.empty(),
                         .values = std::move(values)});
  }
  return completed;
}

Completions completionsOf(const CommandEntry& entry) {
  Arguments arguments = entry.prepare().arguments;
  Completions completions{.words = std::string(entry.name),
                          .options = optionsOf(std::move(arguments.options)),
                          .operands = {}};
  for (const Operand& operand : arguments.operands) {
    if (operand.name == "FILE" || operand.name == "KEY")
      completions.operands.push_back(operand.name);
    if (operand.name.starts_with("PROFILE")) completions.operands.emplace_back("PROFILE");
    if (operand.name == "PROFILE|FILE") completions.operands.emplace_back("FILE");
    if (operand.name == "COMMAND") completions.operands = nextWords({});
  }
  return completions;
}

}  // namespace

std::vector<Completions> completionTable() {
  std::vector<Completions> table{completionsOf(commandTable().front())};
  table.front().words.clear();
  table.front().operands = nextWords({});
  for (const CommandEntry& entry : commandTable()) {
    const std::string first(entry.name.substr(0, entry.name.find(' ')));
    if (first.size() < entry.name.size() && table.back().words.substr(0, first.size()) != first)
      table.push_back({.words = first, .options = optionsOf({}), .operands = nextWords(first)});
    table.push_back(completionsOf(entry));
  }
  return table;
}

}  // namespace zorvantine
