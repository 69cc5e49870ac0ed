// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace viewkit {

// The platform's standard frame around things that belong together. It is as large as its content
// takes, so content that takes what it is offered makes a box that does.
//
//     GroupBox{VStack({}, {Text("Appearance"), Text("Dark")})}
struct GroupBox {
  View content;

  View body() const;
};

}  // namespace viewkit
