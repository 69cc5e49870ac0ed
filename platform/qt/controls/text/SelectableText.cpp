// SPDX-License-Identifier: MIT
#include "controls/text/SelectableText.hpp"

#include "bridge/Strings.hpp"
#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QTextBlockFormat>
#include <QWheelEvent>

#include <cmath>

namespace qt {

SelectableText::SelectableText(MirroredTree& tree, const viewkit::PresentationNode& node,
                               QWidget& parent)
    : QTextEdit(&parent), ControlWidget(tree, node) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QTextOption options;
  options.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  options.setTextDirection(parent.layoutDirection());
  setWordWrapMode(options.wrapMode());
  document()->setDefaultTextOption(options);
  document()->setDocumentMargin(0);
  viewport()->setAutoFillBackground(false);
  viewport()->setMouseTracking(true);
  constexpr int space = look::selectableText::kRingSpace;
  setViewportMargins(space, space, space, space);
}

QRect SelectableText::placeFor(const QRect& frame) const {
  constexpr int space = look::selectableText::kRingSpace;
  return frame.adjusted(-space, -space, space, space);
}

void SelectableText::startAnew() {
  if (textCursor() != QTextCursor(document())) setTextCursor(QTextCursor(document()));
}

void SelectableText::refresh() {
  const auto* selectable = control<viewkit::SelectableTextControl>();
  if (!selectable) return;
  const QFont font = fontOf(selectable->text.font);
  const QString wanted = toQString(selectable->text.text);
  QTextCursor cursor(document());
  cursor.select(QTextCursor::Document);
  if (document()->defaultFont() != font) document()->setDefaultFont(font);
  // Lines are as high as those of TextLines, which layout measured.
  const QFontMetricsF metrics(font);
  const qreal lineHeight = std::ceil(metrics.ascent()) + std::ceil(metrics.descent());
  if (cursor.blockFormat().lineHeight() != lineHeight) {
    QTextBlockFormat lines;
    lines.setLineHeight(lineHeight, QTextBlockFormat::FixedHeight);
    cursor.mergeBlockFormat(lines);
  }
  if (toPlainText() != wanted) {
    cursor.insertText(wanted);
    setTextCursor(QTextCursor(document()));
  }
  applyColor(selectable->text);
}

void SelectableText::applyColor(const viewkit::TextVisual& text) {
  QPalette colors = palette();
  const QColor color = colorOf(text.color);
  if (colors.color(QPalette::Text) != color) {
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
  }
}

void SelectableText::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Tab) {
    event->ignore();
  } else {
    QTextEdit::keyPressEvent(event);
  }
}

void SelectableText::focusInEvent(QFocusEvent* event) {
  QTextEdit::focusInEvent(event);
  update();
}

void SelectableText::focusOutEvent(QFocusEvent* event) {
  QTextEdit::focusOutEvent(event);
  update();
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
    return;
  QTextCursor cursor = textCursor();
  cursor.clearSelection();
  setTextCursor(cursor);
}

void SelectableText::paintEvent(QPaintEvent* event) {
  if (const auto* selectable = control<viewkit::SelectableTextControl>())
    applyColor(selectable->text);
  QTextEdit::paintEvent(event);
}

// The ring lies around the viewport, which paints the text.
bool SelectableText::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QTextEdit::event(event);
  QPainter painter(this);
  Style::drawKeyboardFocus(painter, *this, rect(), look::selectableText::kFocusRingRadius);
  return true;
}

void SelectableText::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace qt
