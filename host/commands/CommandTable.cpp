// SPDX-License-Identifier: MIT
#include "commands/CommandEntry.hpp"

namespace zorvantine {

const std::vector<CommandEntry>& commandTable() {
  static const std::vector<CommandEntry> table = [] {
    std::vector<CommandEntry> all;
    for (auto* const chapter :
         {windowCommands, preferencesCommands, profileCommands, analyzerCommands, helpCommands}) {
      for (CommandEntry& entry : chapter()) all.push_back(std::move(entry));
    }
    return all;
  }();
  return table;
}

}  // namespace zorvantine
