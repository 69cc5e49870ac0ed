// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"
#include "controls/Scrolling.hpp"

namespace qt {

// A viewport of content that is larger. A scroll area that is a list takes the focus; arrow keys
// then select its items.
class ScrollArea : public QWidget, public ControlWidget {
public:
  ScrollArea(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  bool holdsChildren() const override { return true; }
  bool isAtRest() const override;
  bool shows(const viewkit::PresentationNode& node) const override;
  void refresh() override;
  void contentsChanged() override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  bool isList() const;

  Scrolling scrolling_;
};

}  // namespace qt
