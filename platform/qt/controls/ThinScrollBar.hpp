// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>

namespace qt {

// A scroll bar that lies over the trailing or the bottom edge of the content, so that layout
// reserves no space for it.
class ThinScrollBar : public QScrollBar {
public:
  ThinScrollBar(Qt::Orientation orientation, QWidget& parent);

  // Moves the bar to its edge of the parent. `corner` is left free at the end of the bar.
  void place(int corner);
};

}  // namespace qt
