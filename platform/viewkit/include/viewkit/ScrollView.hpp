#pragma once

#include "viewkit/View.hpp"

#include <functional>
#include <memory>

namespace viewkit {

struct ScrollViewOptions {
  bool showsIndicators = true;
};

// A view onto content of any height, which is offered the scroll view's width. It takes the height
// that it is offered, and starts at the top.
View ScrollView(const ScrollViewOptions& options, const View& content);

// Scrolls the scroll views inside a ScrollViewReader. A copy may be kept and used as long as one
// likes; when the reader is gone it does nothing.
class ScrollProxy {
public:
  class Target;

  explicit ScrollProxy(std::weak_ptr<Target> target) : target_(std::move(target)) {}

  // The least scrolling that brings the view with this id into sight, at the end of the coming
  // update: a view that this update makes is found too, a row of a lazy stack that was never built
  // likewise.
  void scrollTo(ViewId id) const;

private:
  std::weak_ptr<Target> target_;
};

// Hands its content the means to scroll what is inside it.
View ScrollViewReader(std::function<View(ScrollProxy)> content);

}  // namespace viewkit
