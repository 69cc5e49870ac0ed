// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <initializer_list>
#include <ranges>
#include <utility>
#include <vector>

namespace viewkit {

// Identifies a child among its siblings: its position in the list as written, and its id where one
// position holds several views. See Children.
struct ChildKey {
  int position = 0;
  std::optional<ViewId> id = std::nullopt;
  friend bool operator==(const ChildKey&, const ChildKey&) = default;
};

// The children of a container in order. A place holds one view, an empty view, or the views of a
// `forEach`. A change in one place does not affect the identity of the views in the others.
//
//     const auto row = [](const std::string& name) { return Text(name); };
//     VStack({.spacing = 4}, {Text("Protocols"), forEach(names, std::identity(), row), Spacer()})
class Children {
public:
  struct Child {
    ChildKey key;
    View view;
  };

  // What one place holds.
  class Place {
  public:
    template <class V>
      requires std::convertible_to<V, View>
    Place(V&& view) : view_(std::forward<V>(view)) {}
    explicit Place(std::vector<Child> views) : views_(std::move(views)) {}

  private:
    friend class Children;
    // One of the two is used.
    View view_;
    std::vector<Child> views_;
  };

  Children(std::initializer_list<Place> places);

  const std::vector<Child>& all() const { return children_; }

private:
  std::vector<Child> children_;
};

// One view for each element, told apart by the id that `identify` gives it.
template <std::ranges::input_range Elements, class Identify, class Make>
Children::Place forEach(Elements&& elements, Identify identify, Make make) {
  std::vector<Children::Child> views;
  if constexpr (std::ranges::sized_range<Elements>) views.reserve(std::ranges::size(elements));
  for (const auto& element : elements) {
    views.push_back(
        {.key = {.position = 0, .id = ViewId(identify(element))}, .view = View(make(element))});
  }
  return Children::Place(std::move(views));
}

// How an HStack places its children. The spacing is in points.
//
//     HStack({.alignment = VerticalAlignment::firstTextBaseline}, {Text("Ports"), Text("80, 443")})
struct HStackOptions {
  VerticalAlignment alignment = VerticalAlignment::center;
  double spacing = 8;
};

// How a VStack places its children. The spacing is in points.
//
//     VStack({.alignment = HorizontalAlignment::leading}, {Text("Ports"), Text("80, 443")})
struct VStackOptions {
  HorizontalAlignment alignment = HorizontalAlignment::center;
  double spacing = 8;
};

// Children side by side, or one under the other. Space is shared out to the least flexible first,
// so that a text keeps its width as long as a spacer can give way.
View HStack(const HStackOptions& options, Children children);
View VStack(const VStackOptions& options, Children children);

// Children one over the other, the first at the bottom; as large as the largest.
View ZStack(Alignment alignment, Children children);

// Takes what its stack has left over, along the stack's direction; never less than the minimum.
View Spacer(double minLength = 0);

}  // namespace viewkit
