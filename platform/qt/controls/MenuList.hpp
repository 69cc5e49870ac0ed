#pragma once

#include "viewkit/Control.hpp"

#include <QElapsedTimer>
#include <QListView>

#include <functional>
#include <vector>

namespace qt {

// The items of an open menu. What lies under the pointer is the current one; typing jumps to the item
// that begins so, else to one with a word that does.
class MenuList : public QListView {
public:
  // The items outlive the list.
  MenuList(const std::vector<viewkit::MenuItem>& items, QWidget& parent);

  void setPicked(std::function<void(int)> picked) { picked_ = std::move(picked); }

  int currentRow() const { return currentIndex().row(); }
  void setCurrentRow(int row);
  QRect rowRect(int row) const;
  int contentWidth() const;
  int contentHeight() const;

  void keyboardSearch(const QString& typed) override;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  const std::vector<viewkit::MenuItem>& items_;
  std::function<void(int)> picked_;
  QString typed_;
  QElapsedTimer sinceTyped_;
  // The release of the press that opened the menu picks nothing, unless the pointer moved meanwhile.
  QPoint openedAt_;
  bool armed_ = false;
};

}  // namespace qt
