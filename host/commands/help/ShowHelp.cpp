// SPDX-License-Identifier: MIT
#include "commandline/version.hpp"
#include "commands/help/Help.hpp"

#include "commands/Commands.hpp"
#include "commands/completions/Completions.hpp"
#include "foundation/Translation.hpp"

#include <ostream>

namespace zorvantine {

using foundation::translated;

namespace {

std::string wholeHelp(HelpFormat format) {
  switch (format) {
    case HelpFormat::text: break;
    case HelpFormat::manual: return manualText();
    case HelpFormat::bash: return bashCompletions();
    case HelpFormat::zsh: return zshCompletions();
    case HelpFormat::fish: return fishCompletions();
  }
  return helpText();
}

}  // namespace

Failed run(const HelpCommand& command, Console& console) {
  std::string text = command.topic.empty() ? wholeHelp(command.format) : "";
  for (const CommandEntry& entry : commandTable()) {
    const bool isMeant = entry.name == command.topic || entry.name.starts_with(command.topic + " ");
    if (command.topic.empty() || !isMeant) continue;
    if (!text.empty()) text += '\n';
    text += helpText(entry);
  }
  if (text.empty()) {
    return Failure{
        .code = ExitCode::usage,
        .message = translated("%1; zorvantine --help shows what there is",
                              {translated("there is no command “%1”", {command.topic})})};
  }
  console.out << text;
  return std::nullopt;
}

Failed run(const VersionCommand&, Console& console) {
  console.out << "zorvantine " << versionText() << '\n';
  return std::nullopt;
}

}  // namespace zorvantine
