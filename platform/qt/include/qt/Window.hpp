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

struct WindowOptions {
  // Empty: the host's display name.
  std::string title = {};
  // Points. The window is never smaller than its root view needs; where the view has a height of
  // its own, the window takes that and follows it until the person gives it another one.
  viewkit::Size size{720, 480};
  viewkit::Environment environment;
  viewkit::View root;
};

// A window with a view in it. Its controls are the platform's own, so keyboard, input methods,
// selection and assistive technology work as they do everywhere.
//
// What keys do in it is described at viewkit::routeKey. When the person's session ends, the texts
// that are being edited are committed. Needs a QApplication that outlives it, made by
// qt::Application or by the host; without one the process stops with a line that says so. Main
// thread only.
class Window : public appkit::Window {
public:
  explicit Window(WindowOptions options);
  // The views disappear; `onClose` is not told.
  ~Window() override;

  // Opens the window, or brings it to the front.
  void show();
  // As a person would: a text that is being edited is committed, the views disappear, and the
  // window stays closed for good. Returns whether it is closed.
  bool close();
  bool isOpen() const;
  // Called on the turn of the main queue after the window was closed, by whomever; it may destroy
  // the window.
  void onClose(std::function<void()> closed);

  // Called when the window is asked to close while texts stand refused in their fields. The window
  // stays open when the call returns false: the host may have asked the person. Not called when the
  // window is destroyed.
  void onCloseWithRefusedTexts(
      std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose);

  // Called while the window closes or is destroyed, if texts stand refused in their fields: they
  // are not stored, and the host should say so. The call may not destroy the window.
  void onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused);

  // Draws the window's content as it is, on the screen or not, into a PNG file with `scale` pixels
  // a point. Fades in progress are ended first. The file is replaced whole; a new one is readable
  // by the user alone. A link, or anything else that is no regular file, is refused and left as it
  // is.
  foundation::Outcome snapshot(const std::string& path, double scale);

  // The widget that the window consists of, for a window, dialog or dock of the host's own:
  //
  //     layout->addWidget(&settings.widget());
  //
  // The host's window then has the title, the size and the keys that close a window, and calls
  // `close` when it closes for good. The widget stays this window's. Where the host's window is
  // destroyed first, the widget goes with it and this window is closed. Not after that.
  QWidget& widget();

  // The views at work. Until the window is closed.
  viewkit::ViewHost& host();

  appkit::Responder* firstResponder() const override;
  bool makeFirstResponder(appkit::Responder* responder) override;

private:
  struct Content;
  std::unique_ptr<Content> content_;
};

}  // namespace qt
