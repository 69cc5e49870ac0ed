#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// The steps of the migration for one value: what takes its place, or nothing when the step leaves
// it alone.
//
// From schema 0 to 1: a colour's bytes become base64 text.
std::optional<PreferenceValue> colorAsText(std::string_view key, const PreferenceValue& value);
// From schema 1 to 2: ports that are an array in a record of a protocol list become one string.
std::optional<PreferenceValue> protocolListWithPortsAsText(std::string_view key,
                                                           const PreferenceValue& value);

// Preferences from elsewhere in the form of the current schema, without a schema version: that one
// belongs to the store which they are merged into.
struct CurrentPreferences {
  PreferenceDictionary values;
  std::size_t rewritten = 0;  // how many values were in an older form
};

// Applies to a list of preferences the steps that its own schema version asks for; a list without a
// version is of schema 0. Fails for a list of a newer schema, whose forms nobody here knows.
//
//     const auto current = inCurrentSchema(*readPropertyList(file));
//     if (current) store.applyAll(current->values);
foundation::Result<CurrentPreferences> inCurrentSchema(PreferenceDictionary list);

// The keys whose values are in a form older than the current schema's, in order, whatever version
// the list names.
std::vector<std::string> keysInOlderForm(const PreferenceDictionary& preferences);

}  // namespace QEVSettings
