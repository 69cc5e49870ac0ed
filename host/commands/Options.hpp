// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandEntry.hpp"
#include "foundation/Result.hpp"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// A command line that has been read.
struct Options {
  // Nothing stands for the user's own store.
  std::optional<std::filesystem::path> store{};
  // Empty for the standard profile.
  std::string profile{};
  // What --set gives: KEY=VALUE.
  std::vector<std::string> forThisRun{};
  StoreUse storeUse = StoreUse::none;
  bool runsUntilEnded = false;
  Program program = Program::shell;
  Invocation invocation{};
};

// The values of the options that every command has.
struct ProgramOptions {
  std::optional<std::filesystem::path> store;
  std::string profile;
  std::vector<std::string> forThisRun;
  bool wantsHelp = false;
  bool wantsVersion = false;
};
std::vector<Option> programOptions(ProgramOptions& options);

// Reads the words after the program's name. --store, --profile and --set may stand before the
// command too. The error
// tells the user who typed the words what is wrong with them.
foundation::Result<Options> parseOptions(Words words);

}  // namespace zorvantine
