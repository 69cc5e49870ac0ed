#pragma once

#include "commands/CommandEntry.hpp"
#include "foundation/Result.hpp"

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace zorvantine {

// A command line, understood.
struct Options {
  // Nothing for the user's own store.
  std::optional<std::filesystem::path> store{};
  StoreUse storeUse = StoreUse::none;
  bool runsUntilEnded = false;
  bool needsWindow = false;
  Invocation invocation{};
};

// The options that any command may have besides its own.
struct ProgramOptions {
  std::optional<std::filesystem::path> store;
  bool wantsHelp = false;
  bool wantsVersion = false;
};
std::vector<Option> programOptions(ProgramOptions& options);

// Reads the words after the program's name. The store may be named before the command too. The
// error says what is wrong with the words, for a person who typed them.
foundation::Result<Options> parseOptions(Words words);

}  // namespace zorvantine
