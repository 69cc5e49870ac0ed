// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace QEVSettings {

// The whole numbers from one to another, both included.
//
//     descriptor.limits = IntegerRange{.lowest = 1, .highest = 1024};
struct IntegerRange {
  std::int64_t lowest;
  std::int64_t highest;
};

// The texts that a setting can have.
using PreferenceChoices = std::vector<std::string>;

// Where the user finds a setting in the window.
//
//     descriptor.place = {.tab = "general", .row = "Packet time zone"};
struct PreferencePlace {
  // The name of the tab: "general", "capture", "proxy", "analyze" or "appearance". Empty for a
  // setting that no page shows.
  std::string tab = {};
  // The title of the analyzer; empty on the other tabs.
  std::string analyzer = {};
  // The localisation key of the row's label.
  std::string row = {};
};

// What is known about one key of the preferences: what it means and which values fit. Views do not
// read it; it serves tools, search and administration.
//
//     catalogue.add({.key = "com_velloquin_zorvantine_hints",
//                    .type = PreferenceValue::Type::boolean,
//                    .defaultValue = true,
//                    .title = "Show hints",
//                    .purpose = "Whether the pages explain their settings."});
struct PreferenceDescriptor {
  std::string key;
  PreferenceValue::Type type = PreferenceValue::Type::string;
  // The value in effect while no layer has one. Nothing while the machine decides, as for a font.
  std::optional<PreferenceValue> defaultValue = std::nullopt;
  // What limits the values of the type.
  std::variant<std::monostate, IntegerRange, PreferenceChoices> limits = {};
  // A rule beside type and limits: returns what would fit, such as "a colour as base64 text", for a
  // value that does not. Empty when there is none.
  std::function<std::optional<std::string>(const PreferenceValue&)> rule = {};
  // Localisation keys, which are the English texts: a few words, and one sentence.
  std::string title;
  std::string purpose;
  // The localisation keys of what the page calls the values, such as "Dark"; none where it shows
  // them as they are.
  std::vector<std::string> valueTitles = {};
  PreferencePlace place = {};
  // Whether an administrator may lock the key.
  bool isLockable = true;
  // Whether the values are secrets, which the history of a store does not keep.
  bool isSecret = false;
};

// What would fit in place of a value that does not, such as "a whole number from 1 to 1024".
// Nothing for a value that fits.
std::optional<std::string> misfit(const PreferenceDescriptor& descriptor,
                                  const PreferenceValue& value);

}  // namespace QEVSettings
