#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <string_view>

namespace zorvantine {

// The value that a person typed for a preference: text as it is, true or false, a whole number, a real
// number, or data in base64. What is not wholly of the type is refused, for nothing else would be stored
// than was meant. The type is none of date, array and dictionary, which cannot be typed.
foundation::Result<QEVSettings::PreferenceValue> readValue(QEVSettings::PreferenceValue::Type type,
                                                           std::string_view text);

}  // namespace zorvantine
