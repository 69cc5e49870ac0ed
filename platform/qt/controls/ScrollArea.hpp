#pragma once

#include "controls/ControlWidget.hpp"

#include <QVariantAnimation>

namespace qt {

class ThinScrollBar;

// A view onto content that is higher: the wheel, a touch, the scroll bar and the keyboard ask the
// view to scroll.
class ScrollArea : public QWidget, public ControlWidget {
public:
  ScrollArea(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  bool holdsChildren() const override { return true; }
  bool isAtRest() const override;
  void refresh() override;
  void contentsChanged() override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  double maximum() const;
  void scrollTo(double offset);
  // A step of the wheel or the keyboard: there at once, or in a short glide.
  void glideTo(double offset);

  ThinScrollBar* bar_;
  QVariantAnimation glide_;
};

}  // namespace qt
