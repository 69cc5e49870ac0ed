// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"

#include <QElapsedTimer>
#include <QListView>
#include <QPointer>

#include <functional>
#include <vector>

namespace qt {

// The items of an open menu. The item under the pointer is the current one. Typing selects the
// first item that begins with the typed text, or else the first one with a word that does.
class MenuList : public QListView {
public:
  // The items outlive the list.
  MenuList(const std::vector<viewkit::MenuItem>& items, QWidget& opener, QWidget& parent);

  // The control that opened the menu; null once it is deleted.
  QWidget* opener() const { return opener_; }

  void setPicked(std::function<void(int)> picked) { picked_ = std::move(picked); }

  // Picks the item, if it can be picked, and closes the menu.
  void pick(int row);

  int rowCount() const { return static_cast<int>(items_.size()); }
  QString title(int row) const;
  bool isEnabled(int row) const { return items_.at(static_cast<size_t>(row)).isEnabled; }
  using QListView::isEnabled;
  int currentRow() const { return currentIndex().row(); }
  void setCurrentRow(int row);
  QRect rowRect(int row) const;
  int contentWidth() const;
  int contentHeight() const;

  // How far the list is scrolled, in points.
  using QListView::verticalOffset;

  void keyboardSearch(const QString& typed) override;

protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  const std::vector<viewkit::MenuItem>& items_;
  QPointer<QWidget> opener_;
  std::function<void(int)> picked_;
  QString typed_;
  QElapsedTimer sinceTyped_;
  // The mouse button that opened the menu may still be down. Its release picks an item only if the
  // pointer has moved since, and then `armed_` is true.
  QPoint openedAt_;
  bool armed_ = false;
};

}  // namespace qt
