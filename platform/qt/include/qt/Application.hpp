#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "viewkit/Geometry.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qt {

// The process's connection to the desktop. While it lives, the main queue is drained by the event
// loop, the application's fonts are the machine's, and every window is drawn in the effective
// appearance, at once when that changes. What the desktop prefers is asked of its settings portal
// where it has one, and is else what the colours tell that the platform gives Qt; both are followed
// while the application runs. One at a time, made before any window and before threads; main
// thread.
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

  // The languages that the person reads, the best first: "pt-BR", "de".
  static std::vector<std::string> preferredLanguages();
  // The language of dialogs that are Qt's own, and the direction that it is written in, which
  // windows made from now on may be given.
  void setLanguage(const std::string& code);
  static viewkit::LayoutDirection layoutDirection();

  // Whether the person asked the desktop for less movement: for the environment of windows.
  bool reducedMotion() const;

  // Calls `readable` on the main thread whenever the file descriptor has something to read. The
  // descriptor stays the caller's and must stay open as long as the subscription is held.
  [[nodiscard]] QEVSettings::Subscription watch(int descriptor, std::function<void()> readable);

private:
  class Runtime;
  std::unique_ptr<Runtime> runtime_;
};

}  // namespace qt
