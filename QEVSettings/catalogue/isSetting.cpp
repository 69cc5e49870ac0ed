// SPDX-License-Identifier: MIT
#include "QEVSettings/isSetting.hpp"

#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "sparkle/SPUUpdater.hpp"

#include <algorithm>
#include <array>

namespace QEVSettings {

bool isSetting(std::string_view key) {
  constexpr std::array notSettings{kAnalyzerSelectedIndex.name, kPrefsSchemaVersion.name,
                                   sparkle::SPUUpdater::kLastCheckKey};
  return std::ranges::find(notSettings, key) == notSettings.end();
}

}  // namespace QEVSettings
