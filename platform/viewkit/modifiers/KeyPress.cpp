// SPDX-License-Identifier: MIT
#include "viewkit/KeyPress.hpp"

#include "input/KeyHandler.hpp"
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <memory>
#include <utility>

namespace viewkit {

namespace {

class KeyPressValue final : public ModifierValue {
public:
  KeyPressValue(View content, KeyScope scope, KeyHandler::Handle handle)
      : ModifierValue(std::move(content)), scope(scope), handle(std::move(handle)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "OnKeyPress"; }

  const KeyScope scope;
  const KeyHandler::Handle handle;
};

class KeyPressNode final : public ModifierNode, private KeyHandler {
public:
  KeyPressNode() : KeyHandler(static_cast<const Node&>(*this)) {}

protected:
  void apply(const ViewValue* before) override {
    scope = valueAs<KeyPressValue>().scope;
    handle = valueAs<KeyPressValue>().handle;
    ModifierNode::apply(before);
  }

  void activeChanged() override {
    if (isActive()) {
      services().addKeyHandler(*this);
    } else {
      services().removeKeyHandler(*this);
    }
  }
};

std::unique_ptr<Node> KeyPressValue::makeNode() const { return std::make_unique<KeyPressNode>(); }

}  // namespace

View onKeyPress(const View& content, KeyScope scope,
                std::function<bool(const appkit::Event&)> handle) {
  return modifiedView<KeyPressValue>(content, scope, std::move(handle));
}

}  // namespace viewkit
