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
// that are being edited are committed. Needs a qt::Application that outlives it. Main thread only.
class Window : public appkit::Window {
public:
  explicit Window(WindowOptions options);
  // The views disappear; `onClose` is not told.
  ~Window() override;

  // Opens the window, or brings it to the front.
  void show();
  // As a person would: a text that is being edited is committed, the views disappear, and the
  // window stays closed for good.
  void close();
  bool isOpen() const;
  // Called on the turn of the main queue after the window was closed, by whomever; it may destroy
  // the window.
  void onClose(std::function<void()> closed);

  // Called while the window closes or is destroyed, if texts stand refused in their fields: they
  // are not stored, and the host should say so. The call may not destroy the window.
  void onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused);

  // Draws the window's content as it is, on the screen or not, into a PNG file with `scale` pixels
  // a point. Fades in progress are ended first. The file is replaced whole; a new one is readable
  // by the user alone. A link, or anything else that is no regular file, is refused and left as it
  // is.
  foundation::Outcome snapshot(const std::string& path, double scale);

  // What the window consists of, to be put into a window of the host's own instead of being shown:
  // that one then has its title, its size, and the keys that close a window. It stays this
  // window's, which goes before the host's.
  QWidget& widget();

  // The views at work. Until the window is closed.
  viewkit::ViewHost& host();

  appkit::Responder* firstResponder() const override;
  bool makeFirstResponder(appkit::Responder* responder) override;

private:
  std::unique_ptr<WindowWidget> widget_;
};

}  // namespace qt
