// SPDX-License-Identifier: MIT
#include "history/historyRules.hpp"

#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "catalogue/HostSettings.hpp"

#include <utility>

namespace zorvantine {

foundation::HistoryRules historyRules(
    std::function<const QEVSettings::PreferencesStore&()> preferences) {
  return {.isKept =
              [preferences = std::move(preferences)] {
                const auto* value = preferences().find(QEVSettings::kKeepsHistory.name);
                const auto chosen = value != nullptr ? value->convertedToBoolean() : std::nullopt;
                return chosen.value_or(QEVSettings::kKeepsHistory.defaultValue);
              },
          .isSecret =
              [](std::string_view key) {
                const auto* known = hostCatalogue().find(key);
                return known != nullptr && known->isSecret;
              }};
}

}  // namespace zorvantine
