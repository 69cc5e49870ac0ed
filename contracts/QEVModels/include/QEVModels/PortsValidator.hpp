// SPDX-License-Identifier: MIT
#pragma once

#include "QEVModels/PortValidationResult.hpp"

#include <string_view>

namespace QEVModels {

// Validates a ports text as a user types or pastes it, and converts it to normal form.
//
//     validatedPorts("443, 80 8000–8010 x").ports;  // "80,443,8000-8010", one correction
//
// The text holds ports and ranges ("8000-8010", with any dash), separated by commas, semicolons or
// white space. Blanks around the dash of a range are allowed. Digits and signs may be full-width.
// Any bytes are accepted.
//
// The normal form is a list in ascending order, joined by "," without blanks, of ports from 0 to
// 65535 and ranges "a-b" with a < b. Ranges that overlap or touch are merged. A port inside a range
// or next to one becomes part of it. Other ports stay single: "80, 81" becomes "80,81".
//
// Changes of blanks, separators, order, leading zeros and full-width forms are not reported. Every
// other change is reported as a correction. The time is linear in the length of the text.
PortValidationResult validatedPorts(std::string_view text);

}  // namespace QEVModels
