// SPDX-License-Identifier: MIT
#include "controls/TextEditing.hpp"

#include "controls/ControlNode.hpp"
#include "controls/GestureWrite.hpp"
#include "tree/NodeServices.hpp"

#include <utility>
#include <variant>

namespace viewkit {

namespace {

class TextFieldValue final : public ControlValue {
public:
  TextFieldValue(TextFieldControl control, std::function<void(const std::string&)> revert,
                 Accessibility accessibility)
      : ControlValue("TextField", std::move(control), std::move(accessibility)),
        revert(std::move(revert)) {}

  std::unique_ptr<Node> makeNode() const override;

  const std::function<void(const std::string&)> revert;
};

class TextFieldNode final : public ControlNode {
protected:
  Control presentedControl() override {
    editing_->describe(view());
    return editing_->control();
  }

  void activeChanged() override {
    editing_->setActive(isActive());
    if (isActive() || !editing_->hasChanged()) return;
    services().callFirstAfterLayout([editing = editing_] { editing->endEditing(); });
  }

private:
  std::shared_ptr<TextEditing> editing_ = std::make_shared<TextEditing>();
};

std::unique_ptr<Node> TextFieldValue::makeNode() const { return std::make_unique<TextFieldNode>(); }

}  // namespace

const TextFieldControl& TextEditing::field() const {
  return std::get<TextFieldControl>(
      static_cast<const TextFieldValue&>(*description_.value()).control);
}

TextFieldControl TextEditing::control() {
  const TextFieldControl& described = field();
  return {
      .text = described.text,
      .placeholder = described.placeholder,
      .lineLimit = described.lineLimit,
      .problem = described.problem,
      .change = [self = shared_from_this()](std::string text) { self->change(std::move(text)); },
      .commit =
          [self = shared_from_this()] {
            if (self->isActive_) self->commit();
          },
      .endEditing =
          [self = shared_from_this()] {
            if (self->isActive_) self->endEditing();
          },
      .revert = [self = shared_from_this()] { return self->isActive_ && self->revert(); }};
}

void TextEditing::change(std::string text) {
  if (!isActive_) return;
  const bool wasStored = !hasChanged_ && field().problem.empty();
  if (wasStored || !before_) before_ = field().text;
  hasChanged_ = true;
  // Kept alive: the call may replace the description.
  const View description = description_;
  const GestureWrite writing;
  if (field().change) field().change(std::move(text));
}

void TextEditing::commit() {
  hasChanged_ = false;
  const View description = description_;
  {
    const GestureWrite writing;
    if (field().commit) field().commit();
  }
  endGesture();
}

void TextEditing::endEditing() {
  if (hasChanged_) commit();
}

bool TextEditing::revert() {
  const bool isRefused = !field().problem.empty();
  const bool hadChanged = std::exchange(hasChanged_, false);
  const auto before = std::exchange(before_, std::nullopt);
  const bool isOther = hadChanged && before != field().text;
  if (!isRefused && !isOther) return false;
  // Kept alive: the call may replace the description.
  const View description = description_;
  const GestureWrite writing;
  const auto& described = static_cast<const TextFieldValue&>(*description.value());
  if (described.revert) {
    described.revert(before.value_or(field().text));
    return true;
  }
  if (!before || !field().change) return false;
  field().change(*before);
  return true;
}

View makeTextField(TextFieldControl control, std::function<void(const std::string&)> revert,
                   Accessibility accessibility) {
  return View(std::make_shared<const TextFieldValue>(std::move(control), std::move(revert),
                                                     std::move(accessibility)));
}

}  // namespace viewkit
