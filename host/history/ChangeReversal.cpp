// SPDX-License-Identifier: MIT
#include "history/ChangeReversal.hpp"

#include "commandline/TextForm.hpp"
#include "foundation/Translation.hpp"

#include <chrono>

namespace zorvantine {

using foundation::Error;
using foundation::RememberedChange;
using foundation::Result;
using foundation::translated;
using foundation::UserDefaults;
using QEVSettings::PreferenceValue;

namespace {

// A history keeps milliseconds.
auto inMilliseconds(PreferenceValue::Date time) {
  return std::chrono::round<std::chrono::milliseconds>(time);
}

}  // namespace

Result<std::vector<RememberedChange>> changesSince(std::span<const RememberedChange> history,
                                                   PreferenceValue::Date time) {
  std::vector<RememberedChange> since;
  for (const RememberedChange& change : history) {
    if (inMilliseconds(change.time) <= inMilliseconds(time)) return since;
    since.push_back(change);
  }
  const bool isWhole = history.size() < foundation::kMostRememberedChanges &&
                       time > std::chrono::system_clock::now() - foundation::kLongestRemembered;
  if (isWhole) return since;
  return Error{translated("the history does not reach back to %1; prefs history shows what it has",
                          {textForm(time)})};
}

Result<UserDefaults::Changes> reversalOf(std::span<const RememberedChange> newest) {
  UserDefaults::Changes reversal;
  for (const RememberedChange& change : newest) {
    const bool isNewestOfKey = reversal.find(change.key) == reversal.end();
    if (isNewestOfKey && !change.isInForce) {
      return Error{translated(
          "“%1” was changed since by a program that keeps no history; set it with prefs set",
          {change.key})};
    }
    if (!change.before.isKnown()) {
      return Error{
          translated("“%1” cannot be put back, because the history has not kept its former value; "
                     "set it with prefs set",
                     {change.key})};
    }
    reversal.insert_or_assign(change.key, change.before.value);
  }
  return reversal;
}

}  // namespace zorvantine
