#include "controls/ControlNode.hpp"

#include "passes/Runtime.hpp"
#include "viewkit/PlatformMetrics.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

namespace viewkit {

namespace {

// Whether both have the same size, whatever they show.
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
  setContent(presentedControl());
  ModifierNode::apply(before);
  say();
}

Measurement ControlNode::measure(const ProposedSize& proposal) {
  if (content()) return content()->measured(proposal);
  const Size size = runtime().metrics().controlSize(value().control, proposal);
  return {size, firstBaseline(size.height)};
}

const InheritedPtr& ControlNode::inheritedByContent() {
  return handedOn_.from(inheritedPtr(), [](Inherited& next) {
    next.forOne = {};
    next.spokenFor = Inherited::SpokenFor::everything;
  });
}

// A control's line of text stands in its middle; a field may have grown to several, with the same
// space around them all.
double ControlNode::firstBaseline(double height) {
  const TextMetrics line = runtime().metrics().measureText({.text = "x"}, std::nullopt);
  const bool grows = std::holds_alternative<TextFieldControl>(value().control);
  const double lines = grows ? std::max(1.0, std::floor(height / line.size.height)) : 1;
  return (height - lines * line.size.height) / 2 + line.firstBaseline;
}

void ControlNode::say() {
  Accessibility accessibility = value().accessibility;
  // What a menu shows is its value; its name comes from elsewhere.
  if (accessibility.label.empty() && accessibility.value.empty())
    accessibility.label = spokenContents();
  if (accessibility.label.empty()) accessibility.label = inherited().forOne.help;
  setAccessibility(std::move(accessibility));
}

std::unique_ptr<Node> ControlValue::makeNode() const { return std::make_unique<ControlNode>(); }

View makeControl(const char* name, Control control, Accessibility accessibility,
                 const View& content) {
  return View(std::make_shared<const ControlValue>(name, std::move(control),
                                                   std::move(accessibility), content));
}

}  // namespace viewkit
