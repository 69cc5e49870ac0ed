// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// The history of a preferences store: what was changed, when, and by which program.
//
// The newest change stands first. A change is remembered in the transaction that makes it, so that
// store and history agree whenever a process ends.

// The most changes that a store remembers, and for how long.
inline constexpr std::size_t kMostRememberedChanges = 1'000;
inline constexpr std::chrono::days kLongestRemembered{90};
// Of a value with more bytes, only their number is remembered. A change of a key with more bytes is
// not remembered at all.
inline constexpr std::size_t kMostRememberedBytes = 65'536;

// What a key held before or after a change.
//
//     if (change.before.isKnown()) restore(change.key, change.before.value);
struct RememberedValue {
  enum class Kind : std::uint8_t {
    none,      // the key had no value
    kept,      // `value` is what the key held
    tooLarge,  // the value had `bytes` bytes, which is more than is kept
    secret,    // the key holds a secret, which is never kept
  };

  Kind kind = Kind::none;
  std::optional<QEVSettings::PreferenceValue> value = std::nullopt;
  std::uint64_t bytes = 0;

  // Whether the key can get this value, or its absence, again.
  bool isKnown() const { return kind == Kind::none || kind == Kind::kept; }

  friend bool operator==(const RememberedValue&, const RememberedValue&) = default;
};

// One change of one key.
//
//     const auto changes = store.history();
//     if (!changes) return report(changes.error().message);
//     for (const RememberedChange& change : *changes) show(change.key, change.program);
struct RememberedChange {
  // Ascends with each change of the store, whichever process makes it. No two changes share one.
  std::int64_t number = 0;
  // The changes of one transaction have the same time. The clock of the machine may go back.
  QEVSettings::PreferenceValue::Date time;
  std::string key;
  RememberedValue before = {};
  RememberedValue after = {};
  // The id and the version of HostIdentity, as in "analyzer 3.2.1".
  std::string program;
  // Whether the store still has the key as this change left it. False for an older change of the
  // key, and when a program that keeps no history has changed the key since.
  bool isInForce = false;
};

// What a store remembers.
//
//     store.setHistoryRules({.isSecret = [](std::string_view key) { return key == "password"; }});
struct HistoryRules {
  // Whether changes are remembered, asked at each change. Once it is false, the next change removes
  // what was remembered before. Empty: as kKeepsHistory of the store says.
  std::function<bool()> isKept = {};
  // Whether the values of a key are secrets. Must not use the store. Empty: no key has secrets.
  std::function<bool(std::string_view key)> isSecret = {};
};

}  // namespace foundation
