// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Stacks.hpp"
#include "viewkit/View.hpp"

#include <cstddef>
#include <functional>

namespace viewkit {

// The number of rows, and a function that makes a row when it is needed. Row i has the id i.
//
//     const auto row = [names](std::size_t i) { return View(Text(names[i])); };
//     ScrollView({}, LazyVStack({.spacing = 2}, {.count = names.size(), .row = row}))
struct LazyRows {
  std::size_t count = 0;
  std::function<View(std::size_t)> row;
};

// Rows one under the other. Only the rows in sight of the surrounding scroll view are built, and a
// few more at both ends, so the cost does not depend on the number of rows. The height of a row
// that was never built is estimated as the average of the others.
View LazyVStack(const VStackOptions& options, LazyRows rows);

}  // namespace viewkit
