#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/JSONWriter.hpp"

namespace zorvantine {

// A value of the preferences as JSON: data as base64 text, a date as ISO 8601 text, and a real that
// is not finite as the text "inf", "-inf" or "nan", for which JSON has no number.
void writePreference(foundation::JSONWriter& writer, const QEVSettings::PreferenceValue& value);

}  // namespace zorvantine
