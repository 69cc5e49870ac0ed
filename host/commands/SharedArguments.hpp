#pragma once

#include "commandline/Arguments.hpp"
#include "commands/Commands.hpp"

#include <optional>
#include <string>

namespace zorvantine {

// --format text|json.
Option formatOption(OutputFormat& format);

// KEY.
Operand keyOperand(std::string& key);

// --tab, for commands that show one tab, and for those that show all of them by default.
Option tabOption(Tab& tab);
Option tabOption(std::optional<Tab>& tab);

// --no-proxy, --analyzers and --language.
void addWindowOptions(std::vector<Option>& options, WindowOptions& window);

// Refuses a tab that the window does not have.
foundation::Outcome checkTab(std::optional<Tab> tab, const WindowOptions& window);

// A key as it was typed: text of at least one character.
foundation::Result<std::string> readKey(std::string_view word);

}  // namespace zorvantine
