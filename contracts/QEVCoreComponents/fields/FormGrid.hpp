// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Grid.hpp"
#include "viewkit/View.hpp"

#include <string>
#include <vector>

namespace QEVCoreComponents {

// A row of a form: a label and the control that it names. `keys` are those of the settings that the
// row shows. Called in a body.
viewkit::GridRow formRow(const std::string& label, const viewkit::View& control,
                         std::vector<std::string> keys = {});

// A form: its labels in one column, its controls in another.
viewkit::View formGrid(std::vector<viewkit::GridRow> rows);

}  // namespace QEVCoreComponents
