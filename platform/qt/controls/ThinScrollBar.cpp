// SPDX-License-Identifier: MIT
#include "controls/ThinScrollBar.hpp"

namespace qt {

ThinScrollBar::ThinScrollBar(Qt::Orientation orientation, QWidget& parent)
    : QScrollBar(orientation, &parent) {
  setAttribute(Qt::WA_OpaquePaintEvent, false);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void ThinScrollBar::place(int corner) {
  const QRect area = parentWidget()->rect();
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  if (orientation() == Qt::Vertical) {
    const int width = sizeHint().width();
    setGeometry(rightToLeft ? 0 : area.width() - width, 0, width, area.height() - corner);
  } else {
    const int height = sizeHint().height();
    // The offset grows from the leading edge.
    setInvertedAppearance(rightToLeft);
    setGeometry(rightToLeft ? corner : 0, area.height() - height, area.width() - corner, height);
  }
}

}  // namespace qt
