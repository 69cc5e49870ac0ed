// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/Arguments.hpp"
#include "commands/Commands.hpp"

#include <filesystem>
#include <optional>
#include <string>

namespace zorvantine {

// --format text|json.
Option formatOption(OutputFormat& format);

// KEY.
Operand keyOperand(std::string& key);

// FILE.
Operand fileOperand(std::filesystem::path& file);

// --tab: the first form for one tab, the second for one tab or all of them.
Option tabOption(Tab& tab);
Option tabOption(std::optional<Tab>& tab);

// --no-proxy, --analyzers and --language.
void addWindowOptions(std::vector<Option>& options, WindowOptions& window);

// Refuses a tab that the window does not have.
foundation::Outcome checkTab(std::optional<Tab> tab, const WindowOptions& window);

// Reads a key: UTF-8 text of at least one character.
foundation::Result<std::string> readKey(std::string_view word);

}  // namespace zorvantine
