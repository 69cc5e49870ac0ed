#pragma once

#include "controls/ControlWidget.hpp"

#include <QVariantAnimation>

namespace qt {

class ThinScrollBar;

// A viewport of content that is higher. The wheel, touch, the scroll bar and the keyboard scroll
// it.
class ScrollArea : public QWidget, public ControlWidget {
public:
  ScrollArea(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

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
  // The largest vertical offset, points.
  double maximum() const;
  void scrollTo(double offset);
  // Scrolls in a short animation, or at once where the person prefers reduced motion.
  void glideTo(double offset);

  ThinScrollBar* bar_;
  QVariantAnimation glide_;
};

}  // namespace qt
