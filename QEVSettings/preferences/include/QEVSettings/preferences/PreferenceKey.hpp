// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace QEVSettings {

// A default that this machine decides at the moment of reading.
//
//     if (kFontConsoleRaw.defaultValue == MachineDefault::fixedPitchFont)
//       return fonts.fixedPitchFont(0);
enum class MachineDefault : std::uint8_t { timeZone, interfaceFont, fixedPitchFont };

// A key of a preferences store, with the type of its values and the value in effect while the key
// is absent. Reading a key never writes its default. The name lives as long as the program.
//
//     inline constexpr PreferenceKey<bool> kShowsHints{"com_velloquin_zorvantine_hints", true};
template <class T, class Default = T>
struct PreferenceKey {
  std::string_view name;
  Default defaultValue;
};

}  // namespace QEVSettings
