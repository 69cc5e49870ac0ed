// SPDX-License-Identifier: MIT
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

// Identifies one of several views of the same type; unique among its siblings.
using ViewId = std::variant<std::int64_t, std::string>;

// A frame of fixed lengths. A length that is left out is that of the content.
//
//     Text("Ports").frame(FixedFrame{.width = 150, .alignment = Alignment::leading()})
struct FixedFrame {
  std::optional<double> width = std::nullopt;
  std::optional<double> height = std::nullopt;
  Alignment alignment = {};
};

// A frame that takes the length that it is proposed, within limits. A limit that is left out is the
// length of the content.
//
//     Text("Ports").frame(FlexibleFrame{.minWidth = 120, .maxWidth = kUnlimited})
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

// The edges of a view that a padding is for.
//
//     Text("Ports").padding(Edges::horizontal, 8)
enum class Edges { all, horizontal, vertical, top, leading, bottom, trailing };

// How a popover is shown.
//
//     button.popover(isOpen.binding(), [] { return View(Text("Ports")); }, {.maxWidth = 240})
struct PopoverOptions {
  // Points; a popover is as wide as its content, up to this.
  double maxWidth = 320;
  // A click on the view beside it leaves the popover open.
  bool staysForView = false;
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

// The modifiers of every view. Each returns a new view that contains this one, so the order
// matters: padding before a background lies inside of it. Lengths are in points.
//
//     Text("Filters").padding(8).background(Color::groupBackground()).onTap(open)
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
  // Keeps the content at its ideal size, whatever size is proposed.
  View fixedSize(bool horizontal = true, bool vertical = true) const;
  View background(const View& background, Alignment alignment = {}) const;
  View background(Color color) const;
  View overlay(const View& overlay, Alignment alignment = {}) const;
  // Cuts the content to its frame with rounded corners.
  View clipped(double cornerRadius = 0) const;
  View opacity(double opacity) const;
  // Fades in when the view is first shown.
  View opacityTransition() const;

  // Apply to this view and all that it contains, where a view inside does not set its own.
  View foreground(Color color) const;
  View font(const Font& font) const;
  View disabled(bool disabled) const;

  // The tool tip, which assistive technology is told as well.
  View help(std::string text) const;
  View accessibilityLabel(std::string label) const;
  // Presents the view and all that it contains to assistive technology as one element of this role,
  // labelled with the texts inside. The controls in a list item remain elements of their own.
  View accessibilityRole(Role role) const;
  View accessibilitySelected(bool selected) const;

  // Called with true when the pointer enters the view's frame, and with false when it leaves the
  // frame or the view disappears.
  View onHover(std::function<void(bool)> action) const;
  // Called at a click in the view's frame that no control and no view inside has taken.
  View onTap(std::function<void()> action) const;
  // Called after the view has appeared, or disappeared. Each appearance is followed by exactly one
  // disappearance, at the latest when the window closes.
  View onAppear(std::function<void()> action) const;
  View onDisappear(std::function<void()> action) const;

  // Called after an update in which the value differs from the one before; not when the view is
  // first shown.
  template <std::equality_comparable T>
  View onChange(T value, std::function<void(const T&)> action) const;

  // Shows the content on a surface above the window, beside this view, while the binding is true.
  View popover(const Binding<bool>& isPresented, std::function<View()> content,
               PopoverOptions options = {}) const;

  // The view that `modifier` makes of this one. A modifier that is a function or has a call
  // operator needs no member here:
  //
  //     View framed(const View& content) { return content.padding(4).background(…); }
  //     Text("Filters").modifier(framed)
  //     Image::named("Portrait").modifier(CornerRadius{.radius = 9})
  template <std::invocable<const View&> Modifier>
  View modifier(const Modifier& modifier) const;

  // The identity of the view. A view with another id is another view, and its state is reset.
  View id(ViewId id) const;

private:
  const Self& self() const { return static_cast<const Self&>(*this); }
};

}  // namespace viewkit
