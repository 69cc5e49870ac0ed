// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleText.hpp"

#include "controls/text/LongText.hpp"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace qt {

AccessibleText::AccessibleText(ControlWidget& control, QTextEdit& edit)
    : AccessibleControl(control), edit_(edit) {}

QString AccessibleText::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Value) return LongText::whole(*edit_.document());
  const QString own = AccessibleControl::text(kind);
  return kind == QAccessible::Name && own.isEmpty() ? edit_.placeholderText() : own;
}

QAccessible::Role AccessibleText::role() const {
  return edit_.isReadOnly() ? QAccessible::StaticText : AccessibleControl::role();
}

QAccessible::State AccessibleText::state() const {
  QAccessible::State state = AccessibleControl::state();
  state.readOnly = edit_.isReadOnly();
  state.editable = !edit_.isReadOnly();
  state.selectableText = true;
  state.multiLine = edit_.lineWrapMode() != QTextEdit::NoWrap;
  return state;
}

void* AccessibleText::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  if (type == QAccessible::EditableTextInterface && !edit_.isReadOnly()) {
    return static_cast<QAccessibleEditableTextInterface*>(this);
  }
  return AccessibleControl::interface_cast(type);
}

QTextCursor AccessibleText::cursorOver(int start, int end) const {
  const int last = characterCount();
  QTextCursor cursor(edit_.document());
  cursor.setPosition(std::clamp(start, 0, last));
  cursor.setPosition(end < 0 ? last : std::clamp(end, 0, last), QTextCursor::KeepAnchor);
  return cursor;
}

void AccessibleText::selection(int index, int* start, int* end) const {
  const QTextCursor cursor = edit_.textCursor();
  const bool exists = index == 0 && cursor.hasSelection();
  *start = exists ? cursor.selectionStart() : 0;
  *end = exists ? cursor.selectionEnd() : 0;
}

int AccessibleText::selectionCount() const { return edit_.textCursor().hasSelection() ? 1 : 0; }

void AccessibleText::addSelection(int start, int end) { setSelection(0, start, end); }

void AccessibleText::removeSelection(int index) {
  if (index != 0) return;
  QTextCursor cursor = edit_.textCursor();
  cursor.clearSelection();
  edit_.setTextCursor(cursor);
}

void AccessibleText::setSelection(int index, int start, int end) {
  if (index == 0) edit_.setTextCursor(cursorOver(start, end));
}

int AccessibleText::cursorPosition() const { return edit_.textCursor().position(); }

void AccessibleText::setCursorPosition(int position) {
  edit_.setTextCursor(cursorOver(position, position));
}

QString AccessibleText::text(int start, int end) const {
  const QString all = edit_.toPlainText();
  return all.mid(start, end < 0 ? -1 : end - start);
}

int AccessibleText::characterCount() const { return edit_.document()->characterCount() - 1; }

QRect AccessibleText::characterRect(int offset) const {
  const QTextCursor here = cursorOver(offset, offset);
  const QRect start = edit_.cursorRect(here);
  const QRect next = edit_.cursorRect(cursorOver(offset + 1, offset + 1));
  const int width =
      next.top() == start.top() ? std::abs(next.left() - start.left()) : start.width();
  const QPoint corner(
      std::min(start.left(), next.top() == start.top() ? next.left() : start.left()), start.top());
  return {edit_.viewport()->mapToGlobal(corner), QSize(width, start.height())};
}

int AccessibleText::offsetAtPoint(const QPoint& point) const {
  return edit_.cursorForPosition(edit_.viewport()->mapFromGlobal(point)).position();
}

void AccessibleText::scrollToSubstring(int start, int end) {
  edit_.setTextCursor(cursorOver(end, start));
  edit_.ensureCursorVisible();
}

QString AccessibleText::attributes(int /*offset*/, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  // The platform passes on no state for a text that was refused, but this attribute of it.
  const bool isRefused = node() && !node()->accessibility.problem.empty();
  return isRefused ? QStringLiteral("invalid:true;") : QString();
}

void AccessibleText::deleteText(int start, int end) { cursorOver(start, end).removeSelectedText(); }

void AccessibleText::insertText(int offset, const QString& text) {
  replaceText(offset, offset, text);
}

void AccessibleText::replaceText(int start, int end, const QString& text) {
  QTextCursor cursor = cursorOver(start, end);
  LongText::insert(cursor, text);
}

}  // namespace qt
