// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVSettings {

// The mark of a row with a changed setting: a dot before the leading edge of the row that it lies
// over. It takes no space. Assistive technology is told "Changed from the default".
viewkit::View changedMark();

}  // namespace QEVSettings
