// SPDX-License-Identifier: MIT
#pragma once

#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTree.hpp"
#include "controls/Scrolling.hpp"
#include "controls/menus/ContextMenus.hpp"
#include "foundation/ObservableObject.hpp"
#include "mirror/Mirror.hpp"
#include "qt/Window.hpp"
#include "viewkit/ViewHost.hpp"
#include "window/QtMetrics.hpp"
#include "window/Runtime.hpp"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace qt {

// The widget of a window: it owns the view host and its mirror, and passes input to the host.
class WindowWidget : public QWidget, public AccessibleRoot {
public:
  WindowWidget(Window& window, const WindowOptions& options);
  ~WindowWidget() override;

  bool isOpen() const { return host_ != nullptr; }
  // May be called only while the window is open.
  viewkit::ViewHost& host() { return *host_; }
  AccessibleTree* accessibleTree() const override { return accessibles_.get(); }
  void openContextMenu(viewkit::NodeId id) override;
  MenuList* contextMenuList() const override;
  void setMayClose(std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose) {
    mayClose_ = std::move(mayClose);
  }
  void setClosed(std::function<void()> closed) { closed_ = std::move(closed); }
  void setRefused(std::function<void(const std::vector<viewkit::RefusedText>&)> refused) {
    refused_ = std::move(refused);
  }

  foundation::Outcome snapshot(const std::string& path, double scale);

  // The control that has the focus in this window; null when none has.
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
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void present(const viewkit::PresentationChanges& changes);
  // Makes the window as large as its root view needs, where the screen has room for it.
  void fit();
  // The largest size that the screen has room for.
  QSize room() const;
  void fitLater();
  // Null while the whole root view is in sight.
  const viewkit::ScrollControl* scrolledRoot() const;
  void stepAnimations();
  void endViews();
  void noteActivation();
  void polish(QObject& watched);
  bool agreesToClose();
  void revealFocus(const QWidget* focused);
  bool showTooltip(QPoint point, QPoint onScreen);
  // Each returns whether the window handled the event. `under` is a widget of the window.
  bool handle(const QWidget& under, QEvent& event);
  bool routeKey(const QKeyEvent& press);

  Window& window_;
  std::shared_ptr<Runtime> runtime_ = Runtime::shared();
  QSize preferredSize_;
  QtMetrics metrics_;
  std::unique_ptr<viewkit::ViewHost> host_;
  std::unique_ptr<Mirror> mirror_;
  std::unique_ptr<AccessibleTree> accessibles_;
  std::optional<ContextMenus> contextMenus_;
  std::function<void()> closed_;
  std::function<bool(const std::vector<viewkit::RefusedText>&)> mayClose_;
  std::function<void(const std::vector<viewkit::RefusedText>&)> refused_;
  foundation::Subscription appearance_;
  QTimer frames_;
  QElapsedTimer sinceFrame_;
  // Scrolls a root view that is larger than the window.
  Scrolling scrolling_;
  // The smallest size of the root view at the last `fit`, and the height that it gave the window.
  QSize fitted_;
  int fittedHeight_ = 0;
  bool fitPending_ = false;
  std::optional<QPoint> pressedAt_;
};

}  // namespace qt
