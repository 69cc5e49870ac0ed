#include "qt/Window.hpp"

#include "controls/ControlWidget.hpp"
#include "window/WindowWidget.hpp"

#include <utility>

namespace qt {

Window::Window(WindowOptions options)
    : widget_(std::make_unique<WindowWidget>(*this, std::move(options))) {}

Window::~Window() = default;

void Window::show() {
  if (!isOpen()) return;
  widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
  widget_->show();
  widget_->raise();
  widget_->activateWindow();
}

void Window::close() { widget_->close(); }

bool Window::isOpen() const { return widget_->isOpen(); }

void Window::onClose(std::function<void()> closed) { widget_->setClosed(std::move(closed)); }

void Window::onRefusedTexts(std::function<void(const std::vector<viewkit::RefusedText>&)> refused) {
  widget_->setRefused(std::move(refused));
}

foundation::Outcome Window::snapshot(const std::string& path, double scale) {
  return widget_->snapshot(path, scale);
}

QWidget& Window::widget() { return *widget_; }

viewkit::ViewHost& Window::host() { return widget_->host(); }

appkit::Responder* Window::firstResponder() const {
  ControlWidget* control = widget_->focusedControl();
  return control ? &control->responder() : nullptr;
}

bool Window::makeFirstResponder(appkit::Responder* responder) {
  if (!responder) {
    widget_->clearFocusAndCommit();
    return true;
  }
  ControlWidget* control = widget_->controlFor(*responder);
  if (!control || !control->widget().isEnabled()) return false;
  control->widget().setFocus(Qt::OtherFocusReason);
  return true;
}

}  // namespace qt
