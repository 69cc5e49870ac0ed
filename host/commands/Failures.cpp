// SPDX-License-Identifier: MIT
#include "catalogue/SettingValues.hpp"
#include "commands/Commands.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"

namespace zorvantine {

using foundation::translated;

Failed storeFailure(const foundation::UserDefaults& store) {
  const auto opening = store.opening();
  if (opening.outcome == QEVSettings::StoreOpening::Outcome::inMemory)
    return Failure{.message = opening.message};
  if (const auto status = store.status())
    return Failure{.code = ExitCode::unavailable, .message = status->message};
  return std::nullopt;
}

Failed lockedFailure(std::string_view key) {
  if (!ProgramPreferences::inForce().isLocked(key)) return std::nullopt;
  return Failure{.message = QEVSettings::lockedMessage(key)};
}

Failure noSuchKey(std::string_view key) {
  const std::string suggestion = suggestionFor(key);
  return {.code = ExitCode::noSuchKey,
          .message =
              suggestion.empty()
                  ? translated("there is no key “%1”; prefs list shows those that there are", {key})
                  : "there is no key “" + std::string(key) + "”; " + suggestion};
}

}  // namespace zorvantine
