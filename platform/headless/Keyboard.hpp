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

// What has the keyboard in a window, and the editing of text. A text field's own text is the only
// copy: the caret alone is kept here.
class Keyboard {
public:
  // The window outlives the keyboard.
  explicit Keyboard(Window& window) : window_(window) {}

  // Nothing when no control has the keyboard.
  const viewkit::PresentationNode* focused() const;
  appkit::Responder* responder() const { return focused() ? responder_.get() : nullptr; }

  // Takes the keyboard from whatever has it, and gives it to the control if it can be used.
  void moveTo(viewkit::NodeId id);
  // To the next control that can be used, or with -1 the one before.
  void move(int step);
  // Takes it from every control: the editing of a text ends.
  void resign();
  // After an update: ends what was going on in a control that is gone or can no longer be used.
  // Whether there was any.
  bool resignIfUnusable();

  // What a key does once it gets to the control.
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
  // In characters.
  std::size_t caret_ = 0;
  bool isAllSelected_ = false;
};

}  // namespace headless
