// SPDX-License-Identifier: MIT
#include "tree/Presented.hpp"

#include "tree/Node.hpp"
#include "tree/Speech.hpp"

#include <type_traits>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

bool showSame(const Presented::Content& a, const Presented::Content& b) {
  return std::visit(
      [&]<class Kind>(const Kind& content) {
        const auto* other = std::get_if<Kind>(&b);
        if constexpr (std::is_same_v<Kind, Control>) {
          return other && looksLike(content, *other);
        } else {
          return other && content == *other;
        }
      },
      a);
}

}  // namespace

void Presented::changed() { owner_.presentationChanged(); }

void Presented::setFrame(const Rect& frame) {
  node.frame = frame;
  changed();
}

void Presented::setContent(Content content) {
  const bool isSame = showSame(node.content, content);
  // The functions of a control are new even where it looks the same.
  node.content = std::move(content);
  if (!isSame) changed();
}

void Presented::setClipRadius(double radius) {
  if (node.clipRadius == radius) return;
  node.clipRadius = radius;
  changed();
}

void Presented::setAccessibility(Accessibility accessibility) {
  const Inherited::ForNearest& given = owner_.inherited().forNearest;
  if (!given.accessibilityLabel.empty()) accessibility.label = given.accessibilityLabel;
  if (!given.help.empty()) accessibility.help = given.help;
  if (given.selected) accessibility.selected = given.selected;
  if (node.control()) accessibility.note = owner_.inherited().controlNote;
  accessibility.enabled = owner_.inherited().enabled;
  if (!speaksForItself(owner_)) accessibility.role = Role::none;
  if (node.accessibility == accessibility && node.tooltip == given.help) return;
  node.accessibility = std::move(accessibility);
  node.tooltip = given.help;
  changed();
}

void Presented::setOpacity(double opacity) {
  if (opacity == opacity_) return;
  opacity_ = opacity;
  setFade(fade_);
}

void Presented::setFade(double fade) {
  fade_ = fade;
  node.opacity = opacity_ * fade_;
  changed();
}

}  // namespace viewkit
