// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace QEVSettings {

// A tab of the settings window.
struct SettingTab {
  // As descriptors name it.
  std::string_view name;
  // A localisation key.
  std::string_view title;
};

// The tabs in the order of the window.
constexpr std::array<SettingTab, 5> settingTabs() {
  return {{{.name = "general", .title = "General"},
           {.name = "capture", .title = "Capture"},
           {.name = "proxy", .title = "MITM Proxy"},
           {.name = "analyze", .title = "Analyzer"},
           {.name = "appearance", .title = "Fonts"}}};
}

}  // namespace QEVSettings
