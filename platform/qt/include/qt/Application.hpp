// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "viewkit/Geometry.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QApplication;
class QTranslator;

namespace qt {

class Runtime;

// The process's connection to the desktop. While it lives, the event loop drains the main queue,
// key presses pass through appkit's monitors, assistive technology can read the windows, and every
// window of the process has the colours of the effective appearance, at once when that changes. The
// desktop's own preference comes from its settings portal, or else from the colours that the
// platform gives Qt; both are followed while the application runs. The portal also says whether
// colours have strong contrast, which accent colour they have and, for an application that this
// class makes, which font and which text size.
//
// A host without a QApplication lets this class make one:
//
//     qt::Application application(argc, argv, qt::Application::Display::screen);
//
// A host with a QApplication of its own has it adopted:
//
//     QApplication application(argc, argv);
//     const qt::Application settings;
//
// An adopted application keeps its style, its fonts and its names; its palette is put back when the
// qt::Application and all windows are gone. One at a time, before threads; main thread. Windows
// without a qt::Application adopt the QApplication themselves, for as long as one of them exists.
class Application {
public:
  // Where windows are drawn: on the display, or only into memory.
  enum class Display { screen, offscreen };

  // Whether there is a display. Without one, making an application for the screen ends the process.
  static bool hasDisplay();

  // Makes a QApplication with the names of QEVSettings::HostIdentity, or adopts the one that exists
  // already. `argc` and `argv` outlive it. Qt takes the options out that it knows.
  Application(int& argc, char** argv, Display display);
  // Adopts the host's QApplication: the existing one, or the next that is made. In the second case
  // the connection begins with the first window or the event loop, whichever comes first.
  Application();
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Runs the event loop until `quit` or until the last window is closed. Returns the exit code of
  // the process.
  int run();
  static void quit();

  // Handles the pending events and the main queue, and returns without waiting for more.
  static void processEvents();

  // The languages of the user, the preferred one first: "pt-BR", "de".
  static std::vector<std::string> preferredLanguages();
  // Sets the language of Qt's own dialogs and, with it, `layoutDirection`. Windows that are open
  // keep their direction.
  void setLanguage(const std::string& code);
  static viewkit::LayoutDirection layoutDirection();

  // Whether the user prefers reduced motion. Hosts pass it to the environment of their windows.
  bool reducedMotion() const;

  // Calls `readable` on the main thread whenever the file descriptor is readable. The caller owns
  // the descriptor and keeps it open while it holds the subscription.
  [[nodiscard]] QEVSettings::Subscription watch(int descriptor, std::function<void()> readable);

private:
  static void connectToNewApplication();

  std::unique_ptr<QApplication> owned_;
  std::unique_ptr<QTranslator> translator_;
  std::shared_ptr<Runtime> runtime_;
};

}  // namespace qt
