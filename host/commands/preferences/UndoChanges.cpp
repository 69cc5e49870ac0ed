// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "foundation/Translation.hpp"
#include "history/ChangeReversal.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <ostream>

namespace zorvantine {

using foundation::Error;
using foundation::RememberedChange;
using foundation::Result;
using foundation::translated;

namespace {

// The changes to take back, the newest first.
Result<std::vector<RememberedChange>> changesOf(const UndoChangesCommand& command) {
  auto history = ProgramPreferences::store().history();
  if (!history) return history.error();
  if (command.time) return changesSince(*history, *command.time);
  if (history->size() >= command.count) {
    history->resize(command.count);
    return history;
  }
  return Error{translated("the history has no more than %1 changes; prefs history shows them",
                          {std::to_string(history->size())})};
}

}  // namespace

Failed run(const UndoChangesCommand& command, Console& console) {
  auto& store = ProgramPreferences::store();
  if (auto failure = storeFailure(store)) return failure;
  const auto changes = changesOf(command);
  if (!changes) return Failure{.message = changes.error().message};
  const auto reversal = reversalOf(*changes);
  if (!reversal) return Failure{.message = reversal.error().message};
  for (const auto& [key, value] : *reversal) {
    if (auto failure = lockedFailure(key)) return failure;
  }
  if (const auto outcome = store.applyChanges(*reversal); !outcome)
    return Failure{.message = outcome.error().message};
  console.out << "Undid " << changes->size() << (changes->size() == 1 ? " change" : " changes")
              << " of " << reversal->size() << (reversal->size() == 1 ? " setting" : " settings")
              << ".\n";
  return std::nullopt;
}

}  // namespace zorvantine
