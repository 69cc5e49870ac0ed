#pragma once

#include "viewkit/Stacks.hpp"
#include "viewkit/View.hpp"

#include <cstddef>
#include <functional>

namespace viewkit {

// The rows of a lazy stack: how many, and each when it is needed. Row i has the id i.
struct LazyRows {
  std::size_t count = 0;
  std::function<View(std::size_t)> row;
};

// Rows one under the other, of which only those in sight of the surrounding scroll view are built,
// a few more at both ends: ten rows and ten thousand cost the same. Rows not seen yet count as high
// as the average of those that were.
View LazyVStack(const VStackOptions& options, LazyRows rows);

}  // namespace viewkit
