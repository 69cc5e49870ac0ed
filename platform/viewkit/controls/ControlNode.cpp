// SPDX-License-Identifier: MIT
#include "controls/ControlNode.hpp"

#include "tree/NodeServices.hpp"
#include "tree/Speech.hpp"
#include "viewkit/PlatformMetrics.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

namespace viewkit {

namespace {

// Whether the two controls, of the same kind, have the same size.
bool measuresLike(const Control& a, const Control& b) {
  if (std::holds_alternative<ColorWellControl>(a)) return true;
  if (const auto* toggle = std::get_if<ToggleControl>(&a))
    return toggle->size == std::get<ToggleControl>(b).size;
  if (const auto* field = std::get_if<TextFieldControl>(&a)) {
    const auto& other = std::get<TextFieldControl>(b);
    if (field->lineLimit == 1 && other.lineLimit == 1)
      return field->placeholder == other.placeholder;
  }
  return looksLike(a, b);
}

}  // namespace

bool ControlNode::hasSameIdentity(const ViewValue& next) const {
  return static_cast<const ControlValue&>(next).name == value().name;
}

void ControlNode::apply(const ViewValue* before) {
  const auto* last = static_cast<const ControlValue*>(before);
  if (last && !measuresLike(last->control, value().control)) layoutChanged();
  present().setContent(presentedControl());
  ModifierNode::apply(before);
  updateAccessibility();
}

Measurement ControlNode::measure(const ProposedSize& proposal) {
  if (content()) return content()->measured(proposal);
  const Size size = services().metrics.controlSize(value().control, proposal);
  return {size, firstBaseline(size.height)};
}

const InheritedPtr& ControlNode::inheritedByContent() {
  return inheritedByContent_.of(inheritedPtr(), [](Inherited& next) {
    next.forNearest = {};
    next.spokenFor = Inherited::SpokenFor::everything;
  });
}

// The text stands in the middle of the control, one line of it or, in a field that has grown,
// several.
double ControlNode::firstBaseline(double height) const {
  const TextMetrics line = services().metrics.measureText({.text = "x"}, std::nullopt);
  const bool grows = std::holds_alternative<TextFieldControl>(value().control);
  const double lines = grows ? std::max(1.0, std::floor(height / line.size.height)) : 1;
  return (height - lines * line.size.height) / 2 + line.firstBaseline;
}

void ControlNode::updateAccessibility() {
  Accessibility accessibility = value().accessibility;
  // A control with a value, such as a menu, shows the value: its contents are not its name.
  if (accessibility.label.empty() && accessibility.value.empty())
    accessibility.label = spokenContents(*this);
  if (accessibility.label.empty()) accessibility.label = inherited().forNearest.help;
  present().setAccessibility(std::move(accessibility));
}

bool ControlNode::refreshSpokenContents() {
  if (!content()) return false;
  updateAccessibility();
  return true;
}

std::unique_ptr<Node> ControlValue::makeNode() const { return std::make_unique<ControlNode>(); }

View makeControl(const char* name, Control control, Accessibility accessibility,
                 const View& content) {
  return View(std::make_shared<const ControlValue>(name, std::move(control),
                                                   std::move(accessibility), content));
}

}  // namespace viewkit
