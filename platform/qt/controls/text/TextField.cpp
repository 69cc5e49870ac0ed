// SPDX-License-Identifier: MIT
#include "controls/text/TextField.hpp"

#include "bridge/MirroredTree.hpp"
#include "bridge/Strings.hpp"
#include "controls/text/LongText.hpp"
#include "controls/text/editText.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

// Only this many characters are measured: no field shows more lines than they fill.
constexpr qsizetype kMeasuredLength = 4096;

int lineCount(const QString& text, double width, int limit) {
  int lines = 0;
  QTextLayout layout(text.left(kMeasuredLength), QApplication::font());
  QTextOption options;
  options.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(options);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid() && lines < limit;
       line = layout.createLine()) {
    line.setLineWidth(width);
    ++lines;
  }
  layout.endLayout();
  return std::max(lines, 1);
}

double lineHeight() { return std::ceil(QFontMetricsF(QApplication::font()).height()); }

}  // namespace

TextField::TextField(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
    : QTextEdit(&parent), ControlWidget(tree, node) {
  const auto& field = std::get<viewkit::TextFieldControl>(*node.control());
  const int limit = field.lineLimit;
  setAcceptRichText(false);
  setTabChangesFocus(true);
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(limit > 1 ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
  QTextOption options;
  options.setWrapMode(limit > 1 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  // Aligned to the leading edge of the layout, whatever the direction of the text.
  options.setAlignment(
      (parent.layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft) |
      Qt::AlignAbsolute);
  setWordWrapMode(options.wrapMode());
  document()->setDefaultTextOption(options);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(0);
  LongText::prepare(*document());
  viewport()->setAutoFillBackground(false);
  viewport()->setMouseTracking(true);
  updateMargins();
  showInitial(toQString(field.text));
  connect(this, &QTextEdit::textChanged, this, [this] { textEdited(); });
}

void TextField::updateMargins() {
  const int padding = static_cast<int>((Style::controlHeight() - lineHeight()) / 2);
  setViewportMargins(look::field::kHorizontalPadding, padding, look::field::kHorizontalPadding,
                     padding);
}

void TextField::changeEvent(QEvent* event) {
  QTextEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateMargins();
}

void TextField::showInitial(const QString& text) {
  // Undo reverts only what the user did.
  setUndoRedoEnabled(false);
  reported_ = text;
  editText(*this, reported_);
  setUndoRedoEnabled(true);
}

bool TextField::shows(const viewkit::PresentationNode& node) const {
  if (!ControlWidget::shows(node)) return false;
  const bool hasLines = std::get<viewkit::TextFieldControl>(*node.control()).lineLimit > 1;
  return hasLines == (lineWrapMode() == QTextEdit::WidgetWidth);
}

void TextField::startAnew() {
  composing_ = false;
  refreshing_ = true;
  showInitial(toQString(control<viewkit::TextFieldControl>()->text));
  refreshing_ = false;
  moveCursor(QTextCursor::End);
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
}

QSizeF TextField::sizeFor(const viewkit::TextFieldControl& field,
                          const viewkit::ProposedSize& proposal) {
  const double width = proposal.width && std::isfinite(*proposal.width)
                           ? *proposal.width
                           : look::field::kDefaultWidth;
  const int lines =
      field.lineLimit > 1
          ? lineCount(toQString(field.text),
                      std::max(1.0, width - 2 * look::field::kHorizontalPadding), field.lineLimit)
          : 1;
  return {width, Style::controlHeight() + (lines - 1) * lineHeight()};
}

void TextField::refresh() {
  const auto* field = control<viewkit::TextFieldControl>();
  if (!field) return;
  setPlaceholderText(toQString(field->placeholder));
  update();
  const QString wanted = toQString(field->text);
  // Changing the text would end the composition of an input method.
  if (composing_ || LongText::whole(*document()) == wanted) return;
  refreshing_ = true;
  editText(*this, wanted);
  reported_ = wanted;
  refreshing_ = false;
}

void TextField::textEdited() {
  if (refreshing_) return;
  const QString now = LongText::whole(*document());
  if (now == reported_) return;
  reported_ = now;
  LongText::shorten(*this);
  call(&viewkit::TextFieldControl::change, now.toStdString());
  refreshLater();
}

void TextField::endEditing() {
  call(&viewkit::TextFieldControl::endEditing);
  refreshLater();
}

bool TextField::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QTextEdit::event(event);
  QPainter painter(this);
  Style::drawFieldSurface(painter, rect(), palette(), isEnabled());
  const auto* field = control<viewkit::TextFieldControl>();
  if (field && !field->problem.empty()) {
    Style::drawProblemRing(painter, rect(), look::kCornerRadius, palette());
  } else if (hasFocus()) {
    Style::drawFocusRing(painter, rect(), look::kCornerRadius, palette());
  }
  return true;
}

void TextField::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTextEdit::keyPressEvent(event);
    return;
  }
  call(&viewkit::TextFieldControl::commit);
  refreshLater();
}

void TextField::focusInEvent(QFocusEvent* event) {
  QTextEdit::focusInEvent(event);
  const auto reason = event->reason();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) selectAll();
  update();
}

void TextField::focusOutEvent(QFocusEvent* event) {
  QTextEdit::focusOutEvent(event);
  update();
  // The context menu of the field takes the focus only while it is open.
  if (event->reason() == Qt::PopupFocusReason) return;
  QTextCursor cursor = textCursor();
  cursor.clearSelection();
  setTextCursor(cursor);
  endEditing();
}

void TextField::inputMethodEvent(QInputMethodEvent* event) {
  composing_ = !event->preeditString().isEmpty();
  QTextEdit::inputMethodEvent(event);
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
  if (!node()) return;
  const auto ofView = tree().host().contextMenuOf(node()->id);
  if (!node()) return;
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setLayoutDirection(layoutDirection());
  if (ofView) {
    menu->addSeparator();
    for (const viewkit::MenuItem& item : ofView->items) {
      QAction* action = menu->addAction(toQString(item.title));
      action->setEnabled(item.isEnabled);
      connect(action, &QAction::triggered, this, [this, act = item.action] {
        if (node()) tree().host().update();
        act();
      });
    }
  }
  menu->popup(event->globalPos());
}

QMimeData* TextField::createMimeDataFromSelection() const {
  auto* copied = new QMimeData;
  copied->setText(LongText::selected(textCursor()));
  return copied;
}

bool TextField::canInsertFromMimeData(const QMimeData* source) const { return source->hasText(); }

void TextField::insertFromMimeData(const QMimeData* source) {
  QString pasted = source->text();
  pasted.replace(QLatin1String("\r\n"), QLatin1String(" "));
  for (QChar& each : pasted) {
    if (each == '\n' || each == '\r' || each == QChar::ParagraphSeparator ||
        each == QChar::LineSeparator)
      each = ' ';
  }
  QTextCursor cursor = textCursor();
  LongText::insert(cursor, pasted);
  ensureCursorVisible();
}

}  // namespace qt
