// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/JSONWriter.hpp"

namespace zorvantine {

// Writes a value as JSON: data as base64 text, a date as ISO 8601 text, and a real that is not
// finite, for which JSON has no number, as the text "inf", "-inf" or "nan".
void writePreference(foundation::JSONWriter& writer, const QEVSettings::PreferenceValue& value);

}  // namespace zorvantine
