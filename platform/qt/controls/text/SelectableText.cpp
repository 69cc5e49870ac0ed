#include "controls/text/SelectableText.hpp"

#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
#include "paint/Style.hpp"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QTextBlockFormat>
#include <QWheelEvent>

#include <cmath>

namespace qt {

SelectableText::SelectableText(Mirror& mirror, const viewkit::PresentationNode& node,
                               QWidget& parent)
    : QTextEdit(&parent), ControlWidget(mirror, node) {
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
}

void SelectableText::startAnew() {
  if (textCursor() != QTextCursor(document())) setTextCursor(QTextCursor(document()));
}

void SelectableText::refresh() {
  const auto* selectable = control<viewkit::SelectableTextControl>();
  if (!selectable) return;
  const QFont font = fontOf(selectable->text.font);
  const QString wanted = text(selectable->text.text);
  QTextCursor cursor(document());
  cursor.select(QTextCursor::Document);
  if (document()->defaultFont() != font) document()->setDefaultFont(font);
  // Lines as high as those of text that is only shown, which layout has measured.
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

  QPalette colors = palette();
  const QColor color = colorOf(selectable->text.color);
  if (colors.color(QPalette::Text) != color) {
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
  }
}

void SelectableText::changeEvent(QEvent* event) {
  QTextEdit::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange) refresh();
}

void SelectableText::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Tab) {
    event->ignore();
  } else {
    QTextEdit::keyPressEvent(event);
  }
}

void SelectableText::focusOutEvent(QFocusEvent* event) {
  QTextEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
    return;
  QTextCursor cursor = textCursor();
  cursor.clearSelection();
  setTextCursor(cursor);
}

void SelectableText::paintEvent(QPaintEvent* event) {
  QTextEdit::paintEvent(event);
  if (!Style::showsFocus(*this)) return;
  QPainter painter(viewport());
  Style::drawFocusRing(painter, rect(), 2, palette());
}

void SelectableText::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace qt
