#pragma once

#include "QEVModels/PortValidationResult.hpp"

#include <string_view>

namespace QEVModels {

// Understands a ports text as a person types or pastes it, and brings it into normal form.
//
// Understood are ports and ranges ("8000-8010", with any dash), separated by commas, semicolons or
// white space; blanks around the dash of a range belong to it. Digits and signs may be full-width.
//
// The normal form is ascending items joined by "," without blanks. An item is a port from 0 to
// 65535 or a range "a-b" with a < b. Ranges that overlap or touch are one, a port inside a range or
// next to it is part of it, other ports stay single: "80, 81" is "80,81". The normal form of a
// normal form is itself.
//
// Blanks, separators, order, leading zeros and full-width forms are put right in silence; every
// other change is told by a correction. Takes time in proportion to the length of the text, which
// may be any bytes.
PortValidationResult validatedPorts(std::string_view text);

}  // namespace QEVModels
