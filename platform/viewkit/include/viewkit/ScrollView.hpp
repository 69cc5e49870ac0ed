#pragma once

#include "viewkit/View.hpp"

#include <functional>
#include <memory>

namespace viewkit {

// How a scroll view looks.
struct ScrollViewOptions {
  bool showsIndicators = true;
};

// Shows a part of content of any height. The content is proposed the width of the scroll view. The
// scroll view takes the height that it is proposed, and starts at the top.
View ScrollView(const ScrollViewOptions& options, const View& content);

// Scrolls the scroll views inside a ScrollViewReader. A copy may outlive the reader, and does
// nothing then.
class ScrollProxy {
public:
  class Target;

  explicit ScrollProxy(std::weak_ptr<Target> target) : target_(std::move(target)) {}

  // Scrolls as little as brings the view with this id into sight, after the layout of the coming
  // update. The view may be one that this update makes, or a row of a lazy stack that was never
  // built.
  void scrollTo(ViewId id) const;

private:
  std::weak_ptr<Target> target_;
};

// Gives its content a proxy that scrolls what is inside.
View ScrollViewReader(std::function<View(ScrollProxy)> content);

}  // namespace viewkit
