#pragma once

#include "tree/ModifierNode.hpp"
#include "viewkit/Control.hpp"

#include <memory>
#include <string>
#include <utility>

namespace viewkit {

// The description of a control, around a view where the control shows one instead of a look of its
// own.
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
  bool answersForItself() const override { return content() == nullptr; }
  // No control is higher because there is room.
  ProposedSize heeded(const ProposedSize& offer) const override {
    return {offer.width, std::nullopt};
  }
  bool speaksForContents() const override { return content() != nullptr; }
  void contentsChanged() override { say(); }

protected:
  bool hasSameIdentity(const ViewValue& next) const override;
  void apply(const ViewValue* before) override;
  Measurement measure(const ProposedSize& proposal) override;
  const InheritedPtr& inheritedByContent() override;

  const ControlValue& value() const { return valueAs<ControlValue>(); }
  // What the back end is given. It may call the functions of it after the node is gone.
  virtual Control presentedControl() { return value().control; }

private:
  double firstBaseline(double height);
  void say();

  HandedOn handedOn_;
};

View makeControl(const char* name, Control control, Accessibility accessibility,
                 const View& content = {});

}  // namespace viewkit
