#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// A line one point high over the width that it is offered, between two sections.
struct Hairline {
  viewkit::Color color;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
