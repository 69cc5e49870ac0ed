// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>
#include <optional>

namespace viewkit {

// All lengths are in points. The origin is the top leading corner: x grows towards the trailing
// edge, and the back end mirrors the whole where the language runs from right to left.

inline constexpr double kUnlimited = std::numeric_limits<double>::infinity();

// A place, in points from the leading top corner.
//
//     const Point below = frame.origin + Point{.x = 0, .y = frame.size.height};
struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

// A width and a height, in points.
//
//     host.setSize(Size{.width = 840, .height = 600});
struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

// A rectangle, in points.
//
//     if (node.frameInWindow().contains(pointer)) highlight(node);
struct Rect {
  Point origin;
  Size size;

  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }
  bool contains(Point p) const {
    return p.x >= origin.x && p.x < maxX() && p.y >= origin.y && p.y < maxY();
  }
  bool isEmpty() const { return size.width <= 0 || size.height <= 0; }
  Rect movedBy(Point offset) const { return {origin + offset, size}; }
  Rect united(const Rect& other) const {
    if (isEmpty()) return other;
    if (other.isEmpty()) return *this;
    const Point corner{std::min(origin.x, other.origin.x), std::min(origin.y, other.origin.y)};
    return {corner,
            {std::max(maxX(), other.maxX()) - corner.x, std::max(maxY(), other.maxY()) - corner.y}};
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

// Distances from the four edges of a rectangle, in points.
//
//     const EdgeInsets insets{.leading = 8, .trailing = 8};
struct EdgeInsets {
  double top = 0;
  double leading = 0;
  double bottom = 0;
  double trailing = 0;
  friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

// What a container offers a view: a length, `kUnlimited`, or nothing, which asks for the view's
// ideal.
//
//     const Size narrow = host.sizeThatFits({.width = 320, .height = kUnlimited});
//     const Size ideal = host.sizeThatFits({});
struct ProposedSize {
  std::optional<double> width;
  std::optional<double> height;
  friend bool operator==(const ProposedSize&, const ProposedSize&) = default;
};

// Where views stand between the leading and the trailing edge.
//
//     VStack({.alignment = HorizontalAlignment::leading}, {Text("Ports"), Text("80, 443")})
enum class HorizontalAlignment { leading, center, trailing };

// Where views stand between the top and the bottom.
//
//     HStack({.alignment = VerticalAlignment::firstTextBaseline}, {Text("Ports"), Text("80, 443")})
enum class VerticalAlignment { top, center, bottom, firstTextBaseline };

// Where a view stands in a larger frame.
//
//     picture.overlay(badge, {HorizontalAlignment::trailing, VerticalAlignment::bottom})
struct Alignment {
  HorizontalAlignment horizontal = HorizontalAlignment::center;
  VerticalAlignment vertical = VerticalAlignment::center;
  friend bool operator==(const Alignment&, const Alignment&) = default;

  static constexpr Alignment centered() { return {}; }
  static constexpr Alignment top() { return {HorizontalAlignment::center, VerticalAlignment::top}; }
  static constexpr Alignment leading() {
    return {HorizontalAlignment::leading, VerticalAlignment::center};
  }
  static constexpr Alignment trailing() {
    return {HorizontalAlignment::trailing, VerticalAlignment::center};
  }
  static constexpr Alignment topLeading() {
    return {HorizontalAlignment::leading, VerticalAlignment::top};
  }
};

// The direction in which the user's language is written.
//
//     auto environment = host.environment();
//     environment.layoutDirection = LayoutDirection::rightToLeft;
//     host.setEnvironment(environment);
enum class LayoutDirection { leftToRight, rightToLeft };

}  // namespace viewkit
