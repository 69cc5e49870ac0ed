// SPDX-License-Identifier: MIT
#include "controls/ScrollArea.hpp"

#include "bridge/KeyEvents.hpp"
#include "bridge/MirroredTree.hpp"
#include "bridge/selectedItem.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"
#include "viewkit/KeyRouter.hpp"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

namespace qt {

ScrollArea::ScrollArea(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
    : QWidget(&parent),
      ControlWidget(tree, node),
      scrolling_(*this, {.control = [this] { return control<viewkit::ScrollControl>(); },
                         .host = [this]() -> viewkit::ViewHost& { return this->tree().host(); }}) {
  if (isList()) setFocusPolicy(Qt::StrongFocus);
}

bool ScrollArea::isList() const {
  const auto* scroll = control<viewkit::ScrollControl>();
  return scroll && scroll->list;
}

bool ScrollArea::isAtRest() const { return !scrolling_.isMoving() && ControlWidget::isAtRest(); }

bool ScrollArea::shows(const viewkit::PresentationNode& node) const {
  if (!ControlWidget::shows(node)) return false;
  const bool takesFocus = focusPolicy() != Qt::NoFocus;
  return takesFocus == std::get<viewkit::ScrollControl>(*node.control()).list.has_value();
}

void ScrollArea::refresh() {
  if (control<viewkit::ScrollControl>()) scrolling_.refresh();
}

void ScrollArea::contentsChanged() {
  scrolling_.raiseBars();
  refresh();
}

bool ScrollArea::event(QEvent* event) { return scrolling_.touch(*event) || QWidget::event(event); }

void ScrollArea::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  tree().paint(painter, *this, event->rect());
  if (isList()) Style::drawKeyboardFocus(painter, *this, rect());
}

void ScrollArea::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  refresh();
}

void ScrollArea::wheelEvent(QWheelEvent* event) { event->setAccepted(scrolling_.wheel(*event)); }

void ScrollArea::keyPressEvent(QKeyEvent* event) {
  const auto* scroll = control<viewkit::ScrollControl>();
  const auto item = scroll && scroll->list
                        ? viewkit::itemSelectedBy(*scroll->list, eventFrom(*event))
                        : std::nullopt;
  if (!item) {
    event->setAccepted(scrolling_.key(*event));
    return;
  }
  const auto select = scroll->list->select;
  select(*item);
  tree().host().update();
  if (const auto* selected = node() ? selectedItemBelow(*node()) : nullptr)
    tree().host().reveal(selected->id);
}

// The focus ring lies over the whole area.
void ScrollArea::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ScrollArea::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace qt
