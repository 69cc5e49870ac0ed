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
// platform gives Qt; both are followed while the application runs.
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
  // Where windows are drawn: on the person's display, or into memory only.
  enum class Display { screen, offscreen };

  // Whether there is a display to open windows on. Qt stops the process when there is none.
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
  static void connectToNewApplication();

  std::unique_ptr<QApplication> owned_;
  std::unique_ptr<QTranslator> translator_;
  std::shared_ptr<Runtime> runtime_;
};

}  // namespace qt
