// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "appkit/Responder.hpp"
#include "viewkit/PresentationNode.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace headless {

class Window;

// The keyboard focus of a window, and the editing of text in the focused field. The text itself is
// read from the field each time; only the caret and the selection are kept here.
class Keyboard {
public:
  // The window outlives the keyboard.
  explicit Keyboard(Window& window) : window_(window) {}

  // Null when no control has the focus.
  const viewkit::PresentationNode* focused() const;
  appkit::Responder* responder() const { return focused() ? responder_.get() : nullptr; }

  // Takes the focus from the control that has it, and gives it to this one if it is usable.
  void moveTo(viewkit::NodeId id);
  // Moves the focus to the next usable control, or with -1 to the previous one.
  void move(int step);
  // Takes the focus from every control, which ends the editing of a text.
  void resign();
  // Called after an update. Takes the focus from a control that is gone or no longer usable, and
  // returns whether it did.
  bool resignIfUnusable();

  // Does what the key does in the focused control.
  void handle(const appkit::Event& event);
  void selectAll();

private:
  const viewkit::TextFieldControl* field() const;
  bool isUsable(const viewkit::PresentationNode* node) const;
  void handleInField(const appkit::Event& event);
  void replace(std::size_t from, std::size_t to, std::string_view text);

  Window& window_;

  viewkit::NodeId id_ = 0;
  std::unique_ptr<appkit::Responder> responder_;
  // Counted in characters.
  std::size_t caret_ = 0;
  bool isAllSelected_ = false;
};

}  // namespace headless
