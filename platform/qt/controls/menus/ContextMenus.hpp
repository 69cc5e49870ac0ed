// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/MirroredTree.hpp"
#include "viewkit/ContextMenu.hpp"

#include <QPoint>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>

class QContextMenuEvent;
class QEvent;
class QKeyEvent;
class QObject;

namespace qt {

class ControlWidget;
class MenuList;
class MenuPopup;

// The context menus of a window: opens the menu of the view that the right mouse button, a long
// press, a key or assistive technology asks for. At most one is open. Text fields open their own
// menu, to which they add the items of the view. Main thread only.
class ContextMenus {
public:
  // The control whose widget is `widget` or contains it; null when there is none.
  using ControlAround = std::function<ControlWidget*(const QWidget* widget)>;

  // The tree outlives the menus.
  ContextMenus(MirroredTree& tree, ControlAround controlAround);
  ~ContextMenus();
  ContextMenus(const ContextMenus&) = delete;
  ContextMenus& operator=(const ContextMenus&) = delete;

  // Each returns whether the event is handled. `under` is a widget of the window.
  bool handle(const QWidget& under, const QContextMenuEvent& event);
  bool handle(ControlWidget* focused, const QKeyEvent& press);
  // Notes a touch of the window, which may become a long press. Ignores all other events.
  void noteTouch(const QObject& watched, QEvent& event);

  // Opens the menu of the view around the node. Returns whether there is one.
  bool openOf(viewkit::NodeId id);

  // Called after each change of the views: closes the menu of a view that is gone.
  void viewsChanged();

  // The list of the open menu; null when none is open.
  MenuList* openList() const;

private:
  bool openAt(QPoint onScreen, const QWidget& under);
  bool open(std::optional<viewkit::ContextMenu> menu, const QRect& anchor);
  void pressedLong();

  MirroredTree& tree_;
  ControlAround controlAround_;
  QPointer<MenuPopup> popup_;
  std::function<bool()> isShown_;
  QTimer longPress_;
  QPoint touchedAt_;
};

}  // namespace qt
