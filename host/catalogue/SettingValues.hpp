// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "foundation/Result.hpp"

#include <string>
#include <string_view>

namespace zorvantine {

// Reads a value for a setting as the user types it: the text of its type, and JSON for a font, an
// array or a list of protocols. The error says what would fit.
foundation::Result<QEVSettings::PreferenceValue> valueFor(
    const QEVSettings::PreferenceDescriptor& descriptor, std::string_view text);

// The same for a value of a known type. The form that an older release stored fits too: the
// migration brings it up to date.
foundation::Outcome checkValue(const QEVSettings::PreferenceDescriptor& descriptor,
                               const QEVSettings::PreferenceValue& value);

// The limits of a setting for the user: "1 to 1024", "light or dark"; empty without any.
std::string limitsOf(const QEVSettings::PreferenceDescriptor& descriptor);

// "did you mean “a” or “b”?" for a key that may be mistyped, or nothing.
std::string suggestionFor(std::string_view key);

}  // namespace zorvantine
