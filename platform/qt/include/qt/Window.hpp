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

class WindowWidget;

struct WindowOptions {
  std::string title;
  // The initial size, points. The window is never smaller than its root view needs. A root view of
  // fixed height sets the height of the window, until the person resizes it.
  viewkit::Size size{720, 480};
  viewkit::Environment environment;
  viewkit::View root;
};

// A window that shows a view. Its controls are Qt widgets, so keyboard, input methods, selection
// and assistive technology work as in other programs.
//
// viewkit::routeKey describes what keys do. When the session of the person ends, a text that is
// being edited is committed. Needs a qt::Application that outlives it. Main thread only.
class Window : public appkit::Window {
public:
  explicit Window(WindowOptions options);
  // The views disappear. `onClose` is not called.
  ~Window() override;

  // Opens the window or brings it to the front. Does nothing after `close`.
  void show();
  // Closes the window for good: commits a text that is being edited, and makes the views disappear.
  void close();
  bool isOpen() const;
  // `closed` is called once, on the turn of the main queue after the window was closed by the
  // person or by `close`. It may destroy the window.
  void onClose(std::function<void()> closed);

  // `refused` is called while the window closes or is destroyed, if fields hold texts that their
  // views refused. These texts are not stored, and the host should tell the person. The call may
  // not destroy the window.
  void onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused);

  // Draws the content of the window, shown or not, into a PNG file with `scale` pixels per point.
  // Ends fades in progress first. Replaces an existing file as a whole; a new file is readable by
  // the user alone. Fails, and changes nothing, when the path is a link or anything else that is no
  // regular file, or cannot be written.
  foundation::Outcome snapshot(const std::string& path, double scale);

  // The widget of the window, for hosts that place it into a window of their own instead of calling
  // `show`. The host's window then decides title, size and the keys that close it. This object
  // keeps the ownership and is destroyed before the host's window.
  QWidget& widget();

  // The host of the views. May be called only while the window is open.
  viewkit::ViewHost& host();

  appkit::Responder* firstResponder() const override;
  bool makeFirstResponder(appkit::Responder* responder) override;

private:
  std::unique_ptr<WindowWidget> widget_;
};

}  // namespace qt
