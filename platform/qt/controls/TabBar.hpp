// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"

#include <QTabBar>

namespace qt {

// The tabs of a tab view: symbols above titles, centred.
class TabBar : public QTabBar, public ControlWidget {
public:
  TabBar(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  static QSizeF sizeFor(const viewkit::TabBarControl& tabs);

  QWidget& widget() override { return *this; }
  void refresh() override;

protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  // Ignored: the wheel scrolls the page and does not change it.
  void wheelEvent(QWheelEvent* event) override;

private:
  void paintTab(QPainter& painter, int index);

  bool refreshing_ = false;
};

}  // namespace qt
