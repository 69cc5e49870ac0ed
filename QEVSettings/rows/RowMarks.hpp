// SPDX-License-Identifier: MIT
#pragma once

namespace QEVSettings {

// Whether the rows of a window have marks and context menus; they have without this object of the
// environment.
struct RowMarks {
  bool areShown = true;
};

}  // namespace QEVSettings
