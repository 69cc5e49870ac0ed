// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Window.hpp"
#include "foundation/Result.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
class ViewHost;
struct RefusedText;
}  // namespace viewkit

class QWidget;

namespace qt {

// What a window shows, and how it is opened. See Window.
struct WindowOptions {
  // Empty: the display name of the host.
  std::string title = {};
  // The initial size, points. The window opens as large as its root view needs, where the screen
  // has room for that, and is never narrower. A root view of fixed height sets the height of the
  // window, until the user resizes it. What a window shows only a part of scrolls.
  viewkit::Size size{720, 480};
  viewkit::Environment environment;
  viewkit::View root;
};

// A window that shows a view. Its controls are Qt widgets, so keyboard, input methods, selection
// and assistive technology work as in other programs.
//
// viewkit::routeKey describes what keys do. When the session of the user ends, a text that is
// being edited is committed. Needs a QApplication that outlives it, made by qt::Application or by
// the host; without one the process stops with a line that says so. Main thread only.
//
//     qt::Window window(
//         {.title = "Settings", .environment = {.defaultStore = store}, .root = settings});
//     window.show();
class Window : public appkit::Window {
public:
  explicit Window(const WindowOptions& options);
  // The views disappear. `onClose` is not called.
  ~Window() override;

  // Opens the window or brings it to the front. Does nothing after `close`.
  void show();
  // Closes the window for good, as the user would: commits a text that is being edited, and makes
  // the views disappear. Returns whether it is closed.
  bool close();
  bool isOpen() const;
  // `closed` is called once, on the turn of the main queue after the window was closed by the
  // user or by `close`. It may destroy the window.
  void onClose(std::function<void()> closed);

  // `mayClose` is called when the window is asked to close while fields hold texts that their views
  // refused. The window stays open when it returns false: the host may have asked the user. Not
  // called when the window is destroyed.
  void onCloseWithRefusedTexts(
      std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose);

  // `refused` is called while the window closes or is destroyed, if fields hold texts that their
  // views refused. These texts are not stored, and the host should tell the user. The call may
  // not destroy the window.
  void onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused);

  // Draws the content of the window, shown or not, into a PNG file with `scale` pixels per point.
  // Ends fades in progress first. Replaces an existing file as a whole; a new file is readable by
  // the user alone. Fails, and changes nothing, when the path is a link or anything else that is no
  // regular file, or cannot be written.
  foundation::Outcome snapshot(const std::string& path, double scale);

  // The widget that the window consists of, for a window, dialog or dock of the host's own:
  //
  //     layout->addWidget(&settings.widget());
  //
  // The host's window then has the title, the size and the keys that close a window, and calls
  // `close` when it closes for good. The widget stays this window's. Where the host's window is
  // destroyed first, the widget goes with it and this window is closed. Not after that.
  QWidget& widget();

  // The host of the views. May be called only while the window is open.
  viewkit::ViewHost& host();

  appkit::Responder* firstResponder() const override;
  bool makeFirstResponder(appkit::Responder* responder) override;

private:
  struct Content;
  std::unique_ptr<Content> content_;
};

}  // namespace qt
