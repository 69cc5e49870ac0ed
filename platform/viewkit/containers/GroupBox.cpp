// SPDX-License-Identifier: MIT
#include "viewkit/GroupBox.hpp"

#include "viewkit/Shape.hpp"

namespace viewkit {

namespace {

constexpr double kInset = 8;
constexpr double kCornerRadius = 6;
constexpr double kBorderWidth = 1;

}  // namespace

View GroupBox::body() const {
  return content.padding(kInset).background(RoundedRectangle(kCornerRadius)
                                                .fill(Color::groupBackground())
                                                .border(Color::separator(), kBorderWidth));
}

}  // namespace viewkit
