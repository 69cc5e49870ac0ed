#pragma once

#include "viewkit/View.hpp"

namespace viewkit {

// The platform's standard frame around things that belong together, as large as it is offered or as
// its content needs.
struct GroupBox {
  View content;

  View body() const;
};

}  // namespace viewkit
