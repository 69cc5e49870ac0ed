#pragma once

#include <QScrollBar>

namespace qt {

// A scroll bar that lies over the content at its trailing edge and takes no room of its own.
class ThinScrollBar : public QScrollBar {
public:
  explicit ThinScrollBar(QWidget& parent);

  // At the trailing edge of the parent.
  void place();
};

}  // namespace qt
