// SPDX-License-Identifier: MIT
#include "commands/help/Help.hpp"

#include "commands/Options.hpp"
#include "commands/help/HelpParts.hpp"

#include <algorithm>
#include <cstddef>

namespace zorvantine {

namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kColumn = 35;
constexpr std::size_t kNarrowColumn = 24;

// Appends words to the last line, which is `lineLength` long. Further lines begin at `column`.
void appendWrapped(std::string& text, std::string_view words, std::size_t lineLength,
                   std::size_t column) {
  bool beginsLine = true;
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(' '), words.size());
    const std::string_view word = words.substr(0, end);
    if (!beginsLine && lineLength + 1 + word.size() > kWidth) {
      text += '\n' + std::string(column, ' ');
      lineLength = column;
    } else if (!beginsLine) {
      text += ' ';
      ++lineLength;
    }
    beginsLine = false;
    text += word;
    lineLength += word.size();
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  text += '\n';
}

// "  WHAT     what it means". The meaning begins at `column`, on the next line when WHAT is longer.
void appendRow(std::string& text, const std::string& what, std::string_view meaning,
               std::size_t column) {
  std::string line = "  " + what;
  if (line.size() + 1 > column) {
    text += "  ";
    appendWrapped(text, what, 2, 6);
    line.clear();
  }
  line.resize(column, ' ');
  text += line;
  appendWrapped(text, meaning, column, column);
}

void appendOptions(std::string& text, const std::vector<Option>& options) {
  for (const Option& option : options) {
    if (!option.help.empty()) appendRow(text, nameAndValue(option), option.help, kNarrowColumn);
  }
}

}  // namespace

std::string helpText() {
  std::string text =
      "Usage: zorvantine [--store FILE | --profile NAME] COMMAND\n\n"
      "The settings of the packet analyzer: in a window, and from the shell.\n";
  for (const auto& [chapter, title] : kChapters) {
    text += '\n' + std::string(title) + '\n';
    for (const CommandEntry& entry : commandTable()) {
      if (entry.chapter == chapter) appendRow(text, synopsis(entry), entry.help, kColumn);
    }
    if (chapter == Chapter::window) {
      text += "  WINDOW is any of\n";
      appendOptions(text, windowOptions());
    }
  }
  ProgramOptions program;
  text += "\nOptions\n";
  appendOptions(text, programOptions(program));
  text += "\nExit codes\n";
  for (const auto& [code, meaning] : kExitCodes) appendRow(text, std::string(code), meaning, 5);
  return text;
}

std::string helpText(const CommandEntry& entry) {
  std::string text = "Usage: zorvantine ";
  appendWrapped(text, synopsis(entry), text.size(), text.size());
  text += '\n';
  appendWrapped(text, entry.help, 0, 0);
  text += "\nOptions\n";
  appendOptions(text, entry.prepare().arguments.options);
  ProgramOptions program;
  appendOptions(text, programOptions(program));
  return text;
}

}  // namespace zorvantine
