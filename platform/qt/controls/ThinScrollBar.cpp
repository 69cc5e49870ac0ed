#include "controls/ThinScrollBar.hpp"

namespace qt {

ThinScrollBar::ThinScrollBar(QWidget& parent) : QScrollBar(Qt::Vertical, &parent) {
  setAttribute(Qt::WA_OpaquePaintEvent, false);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void ThinScrollBar::place() {
  const QRect area = parentWidget()->rect();
  const int width = sizeHint().width();
  const int left = layoutDirection() == Qt::RightToLeft ? 0 : area.width() - width;
  setGeometry(left, 0, width, area.height());
}

}  // namespace qt
