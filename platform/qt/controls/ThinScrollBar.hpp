#pragma once

#include <QScrollBar>

namespace qt {

// A scroll bar that lies over the trailing edge of the content, so that layout reserves no space
// for it.
class ThinScrollBar : public QScrollBar {
public:
  explicit ThinScrollBar(QWidget& parent);

  // Moves the bar to the trailing edge of its parent.
  void place();
};

}  // namespace qt
