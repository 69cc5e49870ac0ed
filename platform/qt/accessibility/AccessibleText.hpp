// SPDX-License-Identifier: MIT
#pragma once

#include "accessibility/AccessibleControl.hpp"

#include <QTextEdit>

namespace qt {

// The accessible interface of a text field or of a selectable text.
class AccessibleText : public AccessibleControl,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
public:
  AccessibleText(ControlWidget& control, QTextEdit& edit);

  QString text(QAccessible::Text kind) const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override;
  void addSelection(int start, int end) override;
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  using AccessibleControl::text;
  QString text(int start, int end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int end) override;
  QString attributes(int offset, int* start, int* end) const override;

  void deleteText(int start, int end) override;
  void insertText(int offset, const QString& text) override;
  void replaceText(int start, int end, const QString& text) override;

private:
  QTextCursor cursorOver(int start, int end) const;

  QTextEdit& edit_;
};

}  // namespace qt
