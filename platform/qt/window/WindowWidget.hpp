#pragma once

#include "foundation/ObservableObject.hpp"
#include "mirror/Mirror.hpp"
#include "paint/QtMetrics.hpp"
#include "qt/Window.hpp"
#include "viewkit/ViewHost.hpp"
#include "window/Runtime.hpp"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace qt {

// The widget behind a window: it owns the views at work, mirrors them and hands them what the
// person does.
class WindowWidget : public QWidget {
public:
  WindowWidget(Window& window, WindowOptions options);
  ~WindowWidget() override;

  bool isOpen() const { return host_ != nullptr; }
  viewkit::ViewHost& host() { return *host_; }
  // Nothing once the window is closed.
  Mirror* mirror() const { return mirror_.get(); }
  void setMayClose(std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose) {
    mayClose_ = std::move(mayClose);
  }
  void setClosed(std::function<void()> closed) { closed_ = std::move(closed); }
  void setRefused(std::function<void(const std::vector<viewkit::RefusedText>&)> refused) {
    refused_ = std::move(refused);
  }

  foundation::Outcome snapshot(const std::string& path, double scale);

  // The control that has the keyboard in this window, if one does.
  ControlWidget* focusedControl() const;
  ControlWidget* controlFor(const appkit::Responder& responder) const;
  void clearFocusAndCommit();

  bool eventFilter(QObject* watched, QEvent* event) override;
  QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

private:
  void present(const viewkit::PresentationChanges& changes);
  void fit();
  void fitLater();
  void step();
  void endViews();
  void noteActivation();
  void polish(QObject& watched);
  bool agreesToClose();
  void revealFocus(const QWidget* focused);
  bool showTooltip(QPoint point, QPoint onScreen);
  // Whether the press was the window's own.
  bool routeKey(const QKeyEvent& press);

  Window& window_;
  std::shared_ptr<Runtime> runtime_ = Runtime::shared();
  QSize preferredSize_;
  QtMetrics metrics_;
  std::unique_ptr<viewkit::ViewHost> host_;
  std::unique_ptr<Mirror> mirror_;
  std::function<void()> closed_;
  std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose_;
  std::function<void(const std::vector<viewkit::RefusedText>&)> refused_;
  foundation::Subscription appearance_;
  QTimer frames_;
  QElapsedTimer sinceFrame_;
  QSize fitted_;
  bool fitPending_ = false;
  std::optional<QPoint> pressedAt_;
};

}  // namespace qt
