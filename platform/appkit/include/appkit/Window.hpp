// SPDX-License-Identifier: MIT
#pragma once

namespace appkit {

class Responder;

// A window as the application knows it. The back end owns it and tells the application when it
// becomes or stops being the one that receives the keyboard.
//
//     if (Window* window = Application::sharedApplication().keyWindow())
//       window->makeFirstResponder(nullptr);  // ends the editing of text
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  // What receives the keyboard in this window, whether or not the window itself does; nothing when
  // no control has it. The window owns it, and it lives until the focus moves.
  virtual Responder* firstResponder() const = 0;

  // Gives the keyboard to the responder, or takes it from every control with nothing: a text that
  // was being edited ends being edited. Returns whether the window agreed.
  virtual bool makeFirstResponder(Responder* responder) = 0;
};

}  // namespace appkit
