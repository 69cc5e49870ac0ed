// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/JSON.hpp"
#include "foundation/Result.hpp"

#include <string_view>

namespace QEVSettings {

// Reads a value of a type from text: text unchanged, true or false, a whole number, a real number
// (inf and -inf included), data in base64, or a date in UTC as in 2026-03-01T12:30:00Z. Refuses
// text that is only partly of the type, nan, and the types array and dictionary, which are read as
// JSON.
foundation::Result<PreferenceValue> readValue(PreferenceValue::Type type, std::string_view text);

// Reads a value from JSON: a whole number of 64 bits is an integer, any other number a real.
// Refuses null, which no preference can hold.
foundation::Result<PreferenceValue> readJSONValue(std::string_view text);
foundation::Result<PreferenceValue> preferenceOf(const foundation::JSON& json);

}  // namespace QEVSettings
