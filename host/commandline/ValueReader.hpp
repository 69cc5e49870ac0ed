#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <string_view>

namespace zorvantine {

// The value that a person typed for a preference: text as it is, true or false, a whole number, a
// real number (inf and -inf included, nan not, which equals nothing), data in base64, or a date in
// UTC as in 2026-03-01T12:30:00Z. What is not wholly of the type is refused. Arrays and
// dictionaries are typed as JSON.
foundation::Result<QEVSettings::PreferenceValue> readValue(QEVSettings::PreferenceValue::Type type,
                                                           std::string_view text);

// The value of a JSON text: a whole number that fits is an integer, any other number a real. Null
// is refused, for no preference can hold it.
foundation::Result<QEVSettings::PreferenceValue> readJSONValue(std::string_view text);

}  // namespace zorvantine
