// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace viewkit {

// How a scroll view looks.
//
//     ScrollView({.showsIndicators = false}, rows)
struct ScrollViewOptions {
  bool showsIndicators = true;
  // Makes the scroll view a list: one stop of the keyboard whose items are what the content shows.
  // Assistive technology is told of a list in place of a scroll area.
  std::optional<ListItems> list = std::nullopt;
};

// Shows a part of content of any height. The content is proposed the width of the scroll view. The
// scroll view takes the height that it is proposed, and starts at the top.
View ScrollView(const ScrollViewOptions& options, const View& content);

// Content that keeps the size it would have without this modifier, up to the height that is
// proposed. Only content that is higher scrolls.
View scrollingWhereTooHigh(const View& content);

// Scrolls the scroll views inside a ScrollViewReader. A copy may outlive the reader, and does
// nothing then.
//
//     ScrollViewReader([rows](const ScrollProxy& proxy) {
//       return ScrollView({}, rows).onAppear([proxy] { proxy.scrollTo("DNS"); });
//     })
class ScrollProxy {
public:
  class Target;

  explicit ScrollProxy(std::weak_ptr<Target> target) : target_(std::move(target)) {}

  // Scrolls as little as brings the view with this id into sight, after the layout of the coming
  // update. The view may be one that this update makes, or a row of a lazy stack that was never
  // built.
  void scrollTo(ViewId id) const;

  // The same, at the end of the coming update, and gives the keyboard to the first control in the
  // view that can be used.
  void focus(ViewId id) const;

private:
  std::weak_ptr<Target> target_;
};

// Gives its content a proxy that scrolls what is inside.
View ScrollViewReader(std::function<View(ScrollProxy)> content);

}  // namespace viewkit
