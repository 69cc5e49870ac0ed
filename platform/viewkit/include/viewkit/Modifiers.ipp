// SPDX-License-Identifier: MIT
// The modifiers by way of the functions behind them; included by View.hpp only.

namespace viewkit {

template <class Self>
View Modifiers<Self>::frame(const FixedFrame& frame) const {
  return modified::byFrame(self(), frame);
}

template <class Self>
View Modifiers<Self>::frame(const FlexibleFrame& frame) const {
  return modified::byFlexibleFrame(self(), frame);
}

template <class Self>
View Modifiers<Self>::padding(double length) const {
  return padding(Edges::all, length);
}

template <class Self>
View Modifiers<Self>::padding(Edges edges, double length) const {
  return modified::byPadding(self(), modified::insets(edges, length));
}

template <class Self>
template <SpacingStep Step>
View Modifiers<Self>::padding(Step step) const {
  return padding(Edges::all, points(step));
}

template <class Self>
template <SpacingStep Step>
View Modifiers<Self>::padding(Edges edges, Step step) const {
  return padding(edges, points(step));
}

template <class Self>
View Modifiers<Self>::fixedSize(bool horizontal, bool vertical) const {
  return modified::byFixedSize(self(), horizontal, vertical);
}

template <class Self>
View Modifiers<Self>::background(const View& background, Alignment alignment) const {
  return modified::byBackground(self(), background, alignment);
}

template <class Self>
View Modifiers<Self>::background(Color color) const {
  return modified::byBackgroundColor(self(), color);
}

template <class Self>
View Modifiers<Self>::overlay(const View& overlay, Alignment alignment) const {
  return modified::byOverlay(self(), overlay, alignment);
}

template <class Self>
View Modifiers<Self>::clipped(double cornerRadius) const {
  return modified::byClip(self(), cornerRadius);
}

template <class Self>
View Modifiers<Self>::opacity(double opacity) const {
  return modified::byOpacity(self(), opacity);
}

template <class Self>
View Modifiers<Self>::opacityTransition() const {
  return modified::byOpacityTransition(self());
}

template <class Self>
View Modifiers<Self>::foreground(Color color) const {
  return modified::byForeground(self(), color);
}

template <class Self>
View Modifiers<Self>::font(const Font& font) const {
  return modified::byFont(self(), font);
}

template <class Self>
View Modifiers<Self>::disabled(bool disabled) const {
  return modified::byDisabled(self(), disabled);
}

// NOLINTBEGIN(performance-unnecessary-value-param): the moves depend on `Self`
template <class Self>
View Modifiers<Self>::help(std::string text) const {
  return modified::byHelp(self(), std::move(text));
}

template <class Self>
View Modifiers<Self>::accessibilityLabel(std::string label) const {
  return modified::byAccessibilityLabel(self(), std::move(label));
}
// NOLINTEND(performance-unnecessary-value-param)

template <class Self>
View Modifiers<Self>::accessibilityRole(Role role) const {
  return modified::byAccessibilityRole(self(), role);
}

template <class Self>
View Modifiers<Self>::accessibilitySelected(bool selected) const {
  return modified::byAccessibilitySelected(self(), selected);
}

template <class Self>
template <std::equality_comparable T>
View Modifiers<Self>::onChange(T value, std::function<void(const T&)> action) const {
  const auto isEqual = [](const std::any& a, const std::any& b) {
    return std::any_cast<T>(a) == std::any_cast<T>(b);
  };
  auto act = [value, action = std::move(action)] { action(value); };
  return modified::byChange(self(), std::any(std::move(value)), isEqual, std::move(act));
}

template <class Self>
View Modifiers<Self>::onHover(std::function<void(bool)> action) const {
  return modified::byHover(self(), std::move(action));
}

template <class Self>
View Modifiers<Self>::onTap(std::function<void()> action) const {
  return modified::byTap(self(), std::move(action));
}

template <class Self>
View Modifiers<Self>::onAppear(std::function<void()> action) const {
  return modified::byAppear(self(), std::move(action), {});
}

template <class Self>
View Modifiers<Self>::onDisappear(std::function<void()> action) const {
  return modified::byAppear(self(), {}, std::move(action));
}

template <class Self>
View Modifiers<Self>::popover(const Binding<bool>& isPresented, std::function<View()> content,
                              PopoverOptions options) const {
  return modified::byPopover(self(), isPresented, std::move(content), options);
}

template <class Self>
template <std::invocable<const View&> Modifier>
View Modifiers<Self>::modifier(const Modifier& modifier) const {
  return modifier(View(self()));
}

template <class Self>
View Modifiers<Self>::id(ViewId id) const {
  return modified::byId(self(), std::move(id));
}

}  // namespace viewkit
