// SPDX-License-Identifier: MIT
#pragma once

namespace appkit {

// What can receive the keyboard in a window.
//
//     const Window* window = Application::sharedApplication().keyWindow();
//     const bool isEditing = window && dynamic_cast<const Text*>(window->firstResponder());
class Responder {
public:
  Responder() = default;
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;
  virtual ~Responder() = default;
};

// A responder in which text is being edited: arrow keys move its caret. See Responder.
class Text : public Responder {};

}  // namespace appkit
