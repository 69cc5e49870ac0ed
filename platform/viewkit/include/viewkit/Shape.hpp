// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"
#include "viewkit/Visual.hpp"

namespace viewkit {

// A rectangle that takes all the space it is offered, with round corners of this radius.
//
//     Text("Ports").background(RoundedRectangle(6).fill(Color::groupBackground()))
class RoundedRectangle : public Modifiers<RoundedRectangle> {
public:
  explicit RoundedRectangle(double cornerRadius = 0,
                            CornerStyle cornerStyle = CornerStyle::circular)
      : cornerRadius_(cornerRadius), cornerStyle_(cornerStyle) {}

  RoundedRectangle fill(Color color) const {
    RoundedRectangle shape = *this;
    shape.fill_ = color;
    return shape;
  }
  // A line of this width just inside the edge.
  RoundedRectangle border(Color color, double width) const {
    RoundedRectangle shape = *this;
    shape.border_ = color;
    shape.borderWidth_ = width;
    return shape;
  }

  operator View() const;

private:
  double cornerRadius_;
  CornerStyle cornerStyle_;
  Color fill_ = Color::clear();
  Color border_ = Color::clear();
  double borderWidth_ = 0;
};

}  // namespace viewkit
