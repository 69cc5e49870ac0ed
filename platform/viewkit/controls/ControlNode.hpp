#pragma once

#include "ModifierNode.hpp"
#include "viewkit/Control.hpp"

#include <memory>
#include <string>
#include <utility>

namespace viewkit {

// The description of a control, around a view where the control shows one instead of a look of its
// own.
class ControlValue final : public ModifierValue {
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

View makeControl(const char* name, Control control, Accessibility accessibility, const View& content = {});

}  // namespace viewkit
