#pragma once

#include "controls/ControlWidget.hpp"

#include <QTabBar>

namespace qt {

// The tabs of a tab view: symbols above titles, centred.
class TabBar : public QTabBar, public ControlWidget {
public:
  TabBar(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

  static QSizeF sizeFor(const viewkit::TabBarControl& tabs);

  QWidget& widget() override { return *this; }
  void refresh() override;

protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  // The wheel scrolls pages, it does not change them.
  void wheelEvent(QWheelEvent* event) override;

private:
  void paintTab(QPainter& painter, int index);

  bool refreshing_ = false;
};

}  // namespace qt
