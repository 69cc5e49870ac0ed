// SPDX-License-Identifier: MIT
#include "qt/Window.hpp"

#include "controls/ControlWidget.hpp"
#include "window/WindowWidget.hpp"

#include <QPointer>

#include <utility>

namespace qt {

// The widget belongs to the window, until the host's window around it is destroyed.
struct Window::Content {
  Content(Window& window, const WindowOptions& options)
      : widget(std::make_unique<WindowWidget>(window, options).release()) {}
  ~Content() { delete widget; }
  Content(const Content&) = delete;
  Content& operator=(const Content&) = delete;

  // Before the widget: Qt stops a program without a QApplication with a line about widgets.
  std::shared_ptr<Runtime> runtime = Runtime::shared();
  QPointer<WindowWidget> widget;
};

Window::Window(const WindowOptions& options)
    : content_(std::make_unique<Content>(*this, options)) {}

Window::~Window() = default;

void Window::show() {
  if (!isOpen()) return;
  WindowWidget& widget = *content_->widget;
  widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
  widget.show();
  widget.raise();
  widget.activateWindow();
}

bool Window::close() {
  if (isOpen()) content_->widget->close();
  return !isOpen();
}

bool Window::isOpen() const { return content_->widget && content_->widget->isOpen(); }

void Window::onClose(std::function<void()> closed) {
  if (content_->widget) content_->widget->setClosed(std::move(closed));
}

void Window::onCloseWithRefusedTexts(
    std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose) {
  if (content_->widget) content_->widget->setMayClose(std::move(mayClose));
}

void Window::onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused) {
  if (content_->widget) content_->widget->setRefused(std::move(refused));
}

foundation::Outcome Window::snapshot(const std::string& path, double scale) {
  if (!content_->widget) {
    return foundation::Error{"the window around the page is gone; take the picture before it is"};
  }
  return content_->widget->snapshot(path, scale);
}

QWidget& Window::widget() { return *content_->widget; }

viewkit::ViewHost& Window::host() { return content_->widget->host(); }

appkit::Responder* Window::firstResponder() const {
  ControlWidget* control = content_->widget ? content_->widget->focusedControl() : nullptr;
  return control ? &control->responder() : nullptr;
}

bool Window::makeFirstResponder(appkit::Responder* responder) {
  if (!content_->widget) return false;
  if (!responder) {
    content_->widget->clearFocusAndCommit();
    return true;
  }
  ControlWidget* control = content_->widget->controlFor(*responder);
  if (!control || !control->widget().isEnabled()) return false;
  control->widget().setFocus(Qt::OtherFocusReason);
  return true;
}

}  // namespace qt
