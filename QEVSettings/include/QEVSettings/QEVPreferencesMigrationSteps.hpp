// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// The steps of the migration for one value. A step returns the new value, or nothing when the value
// needs no change.
//
// From schema 0 to 1: the bytes of a colour become base64 text.
std::optional<PreferenceValue> colorAsText(std::string_view key, const PreferenceValue& value);
// From schema 1 to 2: the array of ports in a record of a protocol list becomes one string.
std::optional<PreferenceValue> protocolListWithPortsAsText(std::string_view key,
                                                           const PreferenceValue& value);

// Imported preferences in the form of the current schema. They have no schema version, because the
// store that they are merged into has its own.
//
//     if (const auto current = inCurrentSchema(std::move(list)))
//       report(std::to_string(current->rewritten) + " values had an older form");
struct CurrentPreferences {
  PreferenceDictionary values;
  std::size_t rewritten = 0;  // the number of values that had an older form
};

// Converts a list of preferences from the schema that its version names, 0 without a version. Fails
// for a newer schema, whose forms are unknown to this release.
//
//     const auto current = inCurrentSchema(*readPropertyList(file));
//     if (current) store.applyAll(current->values);
foundation::Result<CurrentPreferences> inCurrentSchema(PreferenceDictionary list);

// The keys whose values have the form of an older schema, in ascending order. Ignores the version
// of the list.
std::vector<std::string> keysInOlderForm(const PreferenceDictionary& preferences);

}  // namespace QEVSettings
