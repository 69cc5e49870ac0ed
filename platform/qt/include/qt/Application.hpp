#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "viewkit/Geometry.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qt {

// The connection of the process to the desktop. While it lives, the event loop drains the main
// queue, appkit knows the installed fonts, and every window is drawn in the effective appearance
// and follows its changes.
//
// The preferences of the desktop come from its settings portal or, without one, from the palette
// that the platform gives Qt. Changes of both are followed.
//
// There is one application at a time. Make it before any window and before other threads, and use
// it on the main thread only.
class Application {
public:
  // Where windows are drawn: on the display, or only into memory.
  enum class Display { screen, offscreen };

  // Whether there is a display. Without one, making an application for the screen ends the process.
  static bool hasDisplay();

  // `argc` and `argv` outlive the application. Qt removes the options that it knows.
  Application(int& argc, char** argv, Display display);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Runs the event loop until `quit` or until the last window is closed. Returns the exit code of
  // the process.
  int run();
  static void quit();

  // Handles the pending events and the main queue, and returns without waiting for more.
  static void processEvents();

  // The languages of the person, the preferred one first: "pt-BR", "de".
  static std::vector<std::string> preferredLanguages();
  // Sets the language of Qt's own dialogs and, with it, `layoutDirection`. Windows that are open
  // keep their direction.
  void setLanguage(const std::string& code);
  static viewkit::LayoutDirection layoutDirection();

  // Whether the person prefers reduced motion. Hosts pass it to the environment of their windows.
  bool reducedMotion() const;

  // Calls `readable` on the main thread whenever the file descriptor is readable. The caller owns
  // the descriptor and keeps it open while it holds the subscription.
  [[nodiscard]] QEVSettings::Subscription watch(int descriptor, std::function<void()> readable);

private:
  class Runtime;
  std::unique_ptr<Runtime> runtime_;
};

}  // namespace qt
