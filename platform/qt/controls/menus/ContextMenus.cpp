// SPDX-License-Identifier: MIT
#include "controls/menus/ContextMenus.hpp"

#include "bridge/KeyEvents.hpp"
#include "controls/ControlWidget.hpp"
#include "controls/menus/MenuPopup.hpp"
#include "viewkit/KeyRouter.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QStyleHints>
#include <QTextEdit>
#include <QTouchEvent>
#include <QWindow>

#include <utility>

namespace qt {

namespace {

bool isText(const ControlWidget* control) {
  return control && qobject_cast<const QTextEdit*>(&control->widget());
}

// Has the field open its own menu at the caret.
void openOwnMenu(QWidget& field) {
  const QPoint caret = field.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, caret, field.mapToGlobal(caret));
  QApplication::sendEvent(&field, &event);
}

}  // namespace

ContextMenus::ContextMenus(MirroredTree& tree, ControlAround controlAround)
    : tree_(tree), controlAround_(std::move(controlAround)) {
  longPress_.setSingleShot(true);
  longPress_.callOnTimeout([this] { pressedLong(); });
}

ContextMenus::~ContextMenus() {
  if (popup_) popup_->close();
}

bool ContextMenus::handle(const QWidget& under, const QContextMenuEvent& event) {
  const ControlWidget* control = controlAround_(&under);
  if (isText(control)) return false;
  if (event.reason() != QContextMenuEvent::Keyboard) return openAt(event.globalPos(), under);
  return control && control->node() && openOf(control->node()->id);
}

bool ContextMenus::handle(ControlWidget* focused, const QKeyEvent& press) {
  if (!focused || !focused->node() || !viewkit::opensContextMenu(eventFrom(press))) return false;
  if (!isText(focused)) return openOf(focused->node()->id);
  // The platform sends a context menu event for the Menu key.
  if (press.key() == Qt::Key_Menu) return false;
  openOwnMenu(focused->widget());
  return true;
}

void ContextMenus::noteTouch(const QObject& watched, QEvent& event) {
  const auto* touch = dynamic_cast<QTouchEvent*>(&event);
  const QObject* window = tree_.canvas().window()->windowHandle();
  if (!touch || &watched != window) return;
  const bool isOneFinger = touch->pointCount() == 1 && touch->type() != QEvent::TouchCancel;
  const QPoint at = isOneFinger ? touch->points().front().globalPosition().toPoint() : QPoint();
  if (isOneFinger && touch->type() == QEvent::TouchBegin) {
    touchedAt_ = at;
    longPress_.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    return;
  }
  const bool isHeld = isOneFinger && touch->type() == QEvent::TouchUpdate &&
                      (at - touchedAt_).manhattanLength() < QApplication::startDragDistance();
  if (!isHeld) longPress_.stop();
}

void ContextMenus::pressedLong() {
  if (QApplication::activePopupWidget()) return;
  const QWidget* under = tree_.canvas().childAt(tree_.canvas().mapFromGlobal(touchedAt_));
  if (!under) under = &tree_.canvas();
  ControlWidget* control = controlAround_(under);
  if (isText(control) || !openAt(touchedAt_, *under)) return;
  // The press that the touch began as is over.
  auto* button = control ? qobject_cast<QAbstractButton*>(&control->widget()) : nullptr;
  if (button) button->setDown(false);
}

bool ContextMenus::openAt(QPoint onScreen, const QWidget& under) {
  const viewkit::Point point = tree_.treePoint(under, under.mapFromGlobal(QPointF(onScreen)));
  // A popover lies above the view that it stands beside, and has no context menu.
  for (const QWidget* each = &under; each; each = each->parentWidget()) {
    const ControlWidget* control = controlAround_(each);
    if (control && control->floats()) return false;
  }
  return open(tree_.host().contextMenuAt(point), QRect(onScreen, QSize(1, 1)));
}

bool ContextMenus::openOf(viewkit::NodeId id) {
  viewkit::ViewHost& host = tree_.host();
  if (!host.hasContextMenu(id)) return false;
  host.reveal(id);
  auto menu = host.contextMenuOf(id);
  const viewkit::PresentationNode* node = menu ? host.node(id) : nullptr;
  if (!node) return false;
  const MirroredTree::Place place = tree_.placeOf(*node);
  return open(std::move(menu), QRect(place.widget->mapToGlobal(place.rect.topLeft()).toPoint(),
                                     place.rect.size().toSize()));
}

bool ContextMenus::open(std::optional<viewkit::ContextMenu> menu, const QRect& anchor) {
  if (!menu) return false;
  if (popup_) popup_->close();
  // An item acts on views that are up to date.
  for (viewkit::MenuItem& item : menu->items) {
    item.action = [this, canvas = QPointer<QWidget>(&tree_.canvas()), isShown = menu->isShown,
                   action = std::move(item.action)] {
      if (canvas && isShown()) tree_.host().update();
      action();
    };
  }
  isShown_ = menu->isShown;
  popup_ = new MenuPopup(std::move(menu->items), {}, tree_.canvas());
  popup_->openAt(anchor);
  return true;
}

void ContextMenus::viewsChanged() {
  if (popup_ && !isShown_()) popup_->close();
}

MenuList* ContextMenus::openList() const {
  return popup_ && popup_->isVisible() ? &popup_->list() : nullptr;
}

}  // namespace qt
