#pragma once

#include "appkit/Color.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/PresentationNode.hpp"

#include <any>
#include <concepts>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace viewkit {

using appkit::Color;

class View;

// What tells one of several like views from another; unique among its siblings.
using ViewId = std::variant<std::int64_t, std::string>;

// A frame of fixed lengths; a length left out is the content's own.
struct FixedFrame {
  std::optional<double> width = std::nullopt;
  std::optional<double> height = std::nullopt;
  Alignment alignment = {};
};

// A frame that takes what it is offered, within limits; a limit left out is the content's own
// length.
struct FlexibleFrame {
  std::optional<double> minWidth = std::nullopt;
  std::optional<double> maxWidth = std::nullopt;
  std::optional<double> minHeight = std::nullopt;
  std::optional<double> maxHeight = std::nullopt;
  Alignment alignment = {};
};

// A step of a caller's spacing scale: an enumeration for which `points` returns the length.
template <class Step>
concept SpacingStep = std::is_enum_v<Step> && requires(Step step) {
  { points(step) } -> std::convertible_to<double>;
};

enum class Edges { all, horizontal, vertical, top, leading, bottom, trailing };

struct PopoverOptions {
  // Points; a popover is as wide as its content, up to this.
  double maxWidth = 320;
};

namespace modified {
View byFrame(const View& content, const FixedFrame& frame);
View byFlexibleFrame(const View& content, const FlexibleFrame& frame);
View byPadding(const View& content, const EdgeInsets& insets);
View byFixedSize(const View& content, bool horizontal, bool vertical);
View byBackground(const View& content, const View& background, Alignment alignment);
View byBackgroundColor(const View& content, Color color);
View byOverlay(const View& content, const View& overlay, Alignment alignment);
View byClip(const View& content, double cornerRadius);
View byOpacity(const View& content, double opacity);
View byOpacityTransition(const View& content);
View byForeground(const View& content, Color color);
View byFont(const View& content, const Font& font);
View byDisabled(const View& content, bool disabled);
View byHelp(const View& content, std::string help);
View byAccessibilityLabel(const View& content, std::string label);
View byAccessibilityRole(const View& content, Role role);
View byAccessibilitySelected(const View& content, bool selected);
View byHover(const View& content, std::function<void(bool)> action);
View byTap(const View& content, std::function<void()> action);
View byAppear(const View& content, std::function<void()> appear, std::function<void()> disappear);
View byChange(const View& content, std::any value,
              std::function<bool(const std::any&, const std::any&)> isEqual,
              std::function<void()> action);
View byId(const View& content, ViewId id);
View byPopover(const View& content, const Binding<bool>& isPresented, std::function<View()> popover,
               PopoverOptions options);
EdgeInsets insets(Edges edges, double length);
}  // namespace modified

// What can be said of every view. Each modifier gives a view around the one that it is said of, so
// the order matters: padding before a background lies inside it. Lengths are in points.
template <class Self>
class Modifiers {
public:
  View frame(const FixedFrame& frame) const;
  View frame(const FlexibleFrame& frame) const;
  View padding(double length) const;
  View padding(Edges edges, double length) const;
  template <SpacingStep Step>
  View padding(Step step) const;
  template <SpacingStep Step>
  View padding(Edges edges, Step step) const;
  // Keeps the content at its ideal size instead of what it is offered.
  View fixedSize(bool horizontal = true, bool vertical = true) const;
  View background(const View& background, Alignment alignment = {}) const;
  View background(Color color) const;
  View overlay(const View& overlay, Alignment alignment = {}) const;
  // Cuts the content to its frame with rounded corners.
  View clipped(double cornerRadius = 0) const;
  View opacity(double opacity) const;
  // Fades in when the view is first shown.
  View opacityTransition() const;

  // For this view and what it contains, unless it says otherwise itself.
  View foreground(Color color) const;
  View font(const Font& font) const;
  View disabled(bool disabled) const;

  // Shown when the pointer rests on the view, and told to assistive technology.
  View help(std::string text) const;
  View accessibilityLabel(std::string label) const;
  // What the view is to assistive technology, together with all that it contains; the controls in a
  // list item are told besides.
  View accessibilityRole(Role role) const;
  View accessibilitySelected(bool selected) const;

  // Called with true when the pointer enters the view's frame, with false when it leaves it or the
  // view goes away under it.
  View onHover(std::function<void(bool)> action) const;
  // A click in the view's frame that no control and no view inside it took.
  View onTap(std::function<void()> action) const;
  // Each appearance is followed by exactly one disappearance, at the latest when the window closes.
  View onAppear(std::function<void()> action) const;
  View onDisappear(std::function<void()> action) const;

  // Called after an update in which the value differs from the one before; not when the view is
  // first shown.
  template <std::equality_comparable T>
  View onChange(T value, std::function<void(const T&)> action) const;

  // A surface above the window, beside this view, while the binding is true.
  View popover(const Binding<bool>& isPresented, std::function<View()> content,
               PopoverOptions options = {}) const;

  // What a modifier of the caller makes of this view: `modifier` is called with it.
  //
  //     Image::named("Portrait").modifier(CornerRadius{.radius = 9})
  template <class Modifier>
  View modifier(const Modifier& modifier) const;

  // A new id is a new view: state starts afresh.
  View id(ViewId id) const;

private:
  const Self& self() const { return static_cast<const Self&>(*this); }
};

}  // namespace viewkit
