// SPDX-License-Identifier: MIT
#pragma once

#include "tree/ModifierNode.hpp"
#include "viewkit/Control.hpp"

#include <memory>
#include <string>
#include <utility>

namespace viewkit {

// The description of a control. `content` is the view that the control shows in place of a look of
// its own, if it has one.
class ControlValue : public ModifierValue {
public:
  ControlValue(const char* name, Control control, Accessibility accessibility, View content = {})
      : ModifierValue(std::move(content)),
        name(name),
        control(std::move(control)),
        accessibility(std::move(accessibility)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return name; }

  const char* const name;
  const Control control;
  const Accessibility accessibility;
};

class ControlNode : public ModifierNode {
public:
  bool cachesMeasurements() const override { return content() == nullptr; }
  // The height of a control never depends on the height that is proposed.
  ProposedSize relevantPart(const ProposedSize& proposal) const override {
    return {proposal.width, std::nullopt};
  }
  bool refreshSpokenContents() override;

protected:
  bool hasSameIdentity(const ViewValue& next) const override;
  void apply(const ViewValue* before) override;
  Measurement measure(const ProposedSize& proposal) override;
  const InheritedPtr& inheritedByContent() override;

  const ControlValue& value() const { return valueAs<ControlValue>(); }
  // The control that the back end gets. It may call the control's functions after the node is gone.
  virtual Control presentedControl() { return value().control; }

private:
  // `height` is the height of the control.
  double firstBaseline(double height) const;
  void updateAccessibility();

  InheritedOverride inheritedByContent_;
};

View makeControl(const char* name, Control control, Accessibility accessibility,
                 const View& content = {});

}  // namespace viewkit
