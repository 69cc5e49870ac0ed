// SPDX-License-Identifier: MIT
#include "commands/Options.hpp"
#include "commands/help/Help.hpp"
#include "commands/help/HelpParts.hpp"

namespace zorvantine {

namespace {

// Escapes text for roff.
std::string roff(std::string_view text) {
  std::string escaped;
  if (text.starts_with('.') || text.starts_with('\'')) escaped += "\\&";
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

void appendEntry(std::string& text, std::string_view term, std::string_view meaning) {
  text += ".TP\n\\fB" + roff(term) + "\\fR\n" + roff(meaning) + '\n';
}

void appendOptions(std::string& text, const std::vector<Option>& options, bool ofWindow) {
  for (const Option& option : options) {
    const bool isShown = !option.help.empty() && (option.presence == Presence::window) == ofWindow;
    if (isShown) appendEntry(text, nameAndValue(option), option.help);
  }
}

}  // namespace

std::string manualText() {
  ProgramOptions program;
  std::string text = ".SH OPTIONS\n";
  appendOptions(text, programOptions(program), false);
  text += ".SH COMMANDS\n";
  for (const auto& [chapter, title] : kChapters) {
    text += ".SS " + std::string(title) + '\n';
    for (const CommandEntry& entry : commandTable()) {
      if (entry.chapter != chapter) continue;
      appendEntry(text, synopsis(entry), entry.help);
      text += ".RS\n";
      appendOptions(text, entry.prepare().arguments.options, false);
      text += ".RE\n";
    }
    if (chapter != Chapter::window) continue;
    text += ".PP\nWINDOW is any of:\n";
    appendOptions(text, windowOptions(), true);
  }
  text += ".SH EXIT STATUS\n";
  for (const auto& [code, meaning] : kExitCodes) appendEntry(text, code, meaning);
  return text;
}

}  // namespace zorvantine
