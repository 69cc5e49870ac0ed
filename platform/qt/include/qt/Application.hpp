#pragma once

#include <functional>
#include <memory>

namespace qt {

// The process's connection to the desktop. While it lives, the main queue is drained by the event loop,
// the application's fonts are the machine's, and every window is drawn in the effective appearance.
// One at a time, made before any window and before threads; main thread.
class Application {
public:
  // Where windows are drawn: on the person's display, or into memory only.
  enum class Display { screen, offscreen };

  // Whether there is a display to open windows on. Qt stops the process when there is none.
  static bool hasDisplay();

  // `argc` and `argv` outlive the application. Qt takes the options out that it knows.
  Application(int& argc, char** argv, Display display);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Runs the event loop until `quit`, or until the last window is closed. The process's exit code.
  int run();
  static void quit();

  // Handles what is waiting, events and main queue, without waiting for more.
  static void processEvents();

private:
  class Runtime;
  std::unique_ptr<Runtime> runtime_;
};

}  // namespace qt
