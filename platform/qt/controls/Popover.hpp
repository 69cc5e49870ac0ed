// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"

namespace qt {

// A surface that lies above the window, beside the view it belongs to. A click outside closes it.
class Popover : public QWidget, public ControlWidget {
public:
  Popover(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& canvas);
  ~Popover() override;

  QWidget& widget() override { return *this; }
  bool holdsChildren() const override { return true; }
  bool floats() const override { return true; }
  QPoint contentOrigin() const override;
  QRect placeFor(const QRect& frame) const override;

  void dismiss() { call(&viewkit::PopoverControl::dismiss); }

  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  bool isInParent(const QWidget& pressed, const QEvent& press) const;
};

}  // namespace qt
