// SPDX-License-Identifier: MIT
#include "passes/VisualDescription.hpp"

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace viewkit {

namespace {

using appkit::Palette;
using appkit::RGBA;

std::string number(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

std::string describe(const RGBA& color) {
  return "rgba(" + number(color.red) + " " + number(color.green) + " " + number(color.blue) + " " +
         number(color.opacity) + ")";
}

std::string describe(const Color& color) {
  if (color.isClear()) return "clear";
  const std::pair<std::string_view, Color> roles[] = {
      {"accent", Color::accent()},
      {"primary", Color::primary()},
      {"secondary", Color::secondary()},
      {"selectedText", Color::selectedText()},
      {"windowBackground", Color::windowBackground()},
      {"groupBackground", Color::groupBackground()},
      {"controlBackground", Color::controlBackground()},
      {"separator", Color::separator()},
      {"systemRed", Color::systemRed()},
  };
  // Every role of this palette is opaque, so the opacity of the result is the colour's own.
  const RGBA resolved = color.resolved(Palette{});
  for (const auto& [name, role] : roles) {
    if (role.withOpacity(resolved.opacity) != color) continue;
    std::string text(name);
    if (resolved.opacity != 1) text += " at " + number(resolved.opacity);
    return text;
  }
  return describe(resolved);
}

std::string describe(const appkit::Font& font) {
  std::string text = font.family;
  if (!font.style.empty()) text += " " + font.style;
  return text + " " + number(font.pointSize);
}

std::string describe(const Font& font) {
  if (const auto& chosen = font.chosen()) return describe(*chosen);
  const std::pair<std::string_view, Font> styles[] = {
      {"body", Font::body()},
      {"callout", Font::callout()},
      {"caption", Font::caption()},
      {"caption2", Font::caption2()},
      {"title", Font::title()},
      {"title3", Font::title3()},
      {"system", Font::system(font.pointSize(0))},
  };
  const bool isSemibold = font.weight() == Font::Weight::semibold;
  for (const auto& [name, style] : styles) {
    if (font != (isSemibold ? style.semibold() : style)) continue;
    std::string text(name);
    if (name == "system") text += " " + number(font.pointSize(0));
    return isSemibold ? text + " semibold" : text;
  }
  return "font";
}

std::string describe(const TextVisual& visual) {
  std::string text = describe(visual.font) + " " + describe(visual.color);
  if (visual.lineLimit > 0) text += ", " + std::to_string(visual.lineLimit) + " line";
  if (visual.lineLimit > 1) text += "s";
  if (visual.truncation == Truncation::middle) text += ", truncated in the middle";
  return text;
}

std::string symbol(const SymbolName& name) { return "symbol " + std::string(name.text()); }

std::string describe(std::monostate /*nothing*/) { return {}; }

std::string describe(const SymbolVisual& visual) {
  return symbol(visual.name) + " " + describe(visual.color);
}

std::string describe(const ImageVisual& visual) {
  // The folder depends on where the program is installed.
  std::string text = "image " + visual.path.substr(visual.path.rfind('/') + 1);
  switch (visual.mode) {
    case ImageVisual::Mode::stretch: return text + ", stretched";
    case ImageVisual::Mode::fit: return text + ", to fit";
    case ImageVisual::Mode::fill: return text + ", to fill";
  }
  return text;
}

std::string describe(const ShapeVisual& visual) {
  std::string text = "shape";
  if (visual.cornerRadius != 0) text += " radius " + number(visual.cornerRadius);
  if (visual.cornerStyle == CornerStyle::continuous) text += " continuous";
  if (!visual.fill.isClear()) text += " fill " + describe(visual.fill);
  if (visual.borderWidth != 0 && !visual.border.isClear())
    text += " border " + number(visual.borderWidth) + " " + describe(visual.border);
  return text;
}

std::string describe(const ButtonControl& button) {
  return button.symbol ? symbol(*button.symbol) : std::string();
}

std::string describe(const PlainButtonControl& /*button*/) { return "plain"; }

std::string describe(const FileButtonControl& /*button*/) { return "of a file"; }

std::string describe(const HelpButtonControl& /*button*/) { return {}; }

std::string describe(const FontPickerControl& picker) { return describe(picker.font); }

std::string describe(const TabBarControl& bar) {
  std::string text;
  for (const TabBarControl::Item& item : bar.items) {
    if (!text.empty()) text += ", ";
    text += item.title + " " + std::string(item.symbol.text());
  }
  return "tabs " + text;
}

std::string describe(const PopoverControl& /*popover*/) { return {}; }

std::string describe(const ToggleControl& toggle) {
  return toggle.size == ToggleControl::Size::small ? "small" : "";
}

std::string describe(const ColorWellControl& well) {
  return describe(well.color) + (well.supportsOpacity ? ", with opacity" : "");
}

std::string describe(const MenuControl& menu) {
  return menu.kind == MenuControl::Kind::label ? "plain" : "";
}

std::string describe(const TextFieldControl& field) {
  std::string text;
  if (!field.placeholder.empty()) text = "placeholder " + field.placeholder;
  if (field.lineLimit == 1) return text;
  return text + (text.empty() ? "" : ", ") + "up to " + std::to_string(field.lineLimit) + " lines";
}

std::string describe(const SelectableTextControl& selectable) {
  return "selectable " + describe(selectable.text);
}

std::string describe(const ScrollControl& scroll) {
  std::string text =
      "content " + number(scroll.contentSize.width) + " x " + number(scroll.contentSize.height);
  if (scroll.offset != Point{})
    text += " at " + number(scroll.offset.x) + ", " + number(scroll.offset.y);
  return scroll.showsIndicators ? text : text + ", without scroll bar";
}

std::string describe(const Control& control) {
  return std::visit([](const auto& kind) { return describe(kind); }, control);
}

}  // namespace

std::string describeVisual(const PresentationNode& node) {
  const bool isScrolling = node.control() && std::holds_alternative<ScrollControl>(*node.control());
  // Its content is shown whole.
  if (isScrolling && node.parent && node.accessibility.role == Role::none) return {};
  std::string text =
      std::visit([](const auto& content) { return describe(content); }, node.content);
  const auto append = [&text](const std::string& part) {
    if (!text.empty()) text += ", ";
    text += part;
  };
  if (node.clipRadius) append("clipped with radius " + number(*node.clipRadius));
  if (node.opacity != 1) append("opacity " + number(node.opacity));
  return text;
}

}  // namespace viewkit
