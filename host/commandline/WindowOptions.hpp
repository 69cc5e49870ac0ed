// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zorvantine {

enum class Tab { general, capture, proxy, analyze, appearance };

// "general", "capture", "proxy", "analyze" or "appearance".
std::string_view nameOf(Tab tab);

// The options of every command that opens, draws or describes the window.
struct WindowOptions {
  bool hasProxyTab = true;
  // The number of synthetic analyzers that replace the real ones; nothing for the real ones.
  std::optional<std::size_t> syntheticAnalyzers;
  // Empty for the desktop's language.
  std::string language;

  friend bool operator==(const WindowOptions&, const WindowOptions&) = default;
};

}  // namespace zorvantine
