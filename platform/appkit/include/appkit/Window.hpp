#pragma once

namespace appkit {

// A window as the application knows it. The back end owns it and tells the application when it
// becomes or stops being the one that receives the keyboard.
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();
};

}  // namespace appkit
