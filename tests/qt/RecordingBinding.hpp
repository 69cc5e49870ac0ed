// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Binding.hpp"

#include <utility>
#include <vector>

namespace qt {

// A binding that always reads `shown` and appends every value that is written to `writes`, which
// outlives it.
template <class T>
viewkit::Binding<T> recording(std::vector<T>& writes, T shown) {
  return {[shown] { return shown; }, [&writes](T value) { writes.push_back(std::move(value)); }};
}

}  // namespace qt
