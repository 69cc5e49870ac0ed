// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"

#include <QObject>
#include <QVariantAnimation>

#include <functional>

class QKeyEvent;
class QWheelEvent;
class QWidget;

namespace viewkit {
class ViewHost;
}

namespace qt {

class ThinScrollBar;

// Scrolls what a widget shows a part of: by the scroll bars, which it makes, by the wheel, by touch
// and by keys.
class Scrolling final : public QObject {
public:
  struct Source {
    // Null while there is nothing to scroll.
    std::function<const viewkit::ScrollControl*()> control;
    std::function<viewkit::ViewHost&()> host;
  };

  // The widget owns the bars and outlives this object.
  Scrolling(QWidget& area, Source source);

  // Called when the content, its offset or the size of the widget has changed.
  void refresh();
  void raiseBars();
  // Whether the user is scrolling or the content glides.
  bool isMoving() const;

  // Each returns whether the event scrolled; an event that did not is for the areas around.
  bool wheel(QWheelEvent& event);
  bool key(const QKeyEvent& event);
  bool touch(QEvent& event);

private:
  const viewkit::ScrollControl* control() const { return source_.control(); }
  // The largest offset, points.
  viewkit::Point maximum() const;
  viewkit::Point bounded(viewkit::Point offset) const;
  void scrollTo(viewkit::Point offset);
  // Scrolls in a short animation, or at once where the user prefers reduced motion.
  void glideTo(viewkit::Point offset);
  void refresh(ThinScrollBar& bar, double content, double visible, double offset);

  QWidget& area_;
  Source source_;
  ThinScrollBar* vertical_;
  ThinScrollBar* horizontal_;
  QVariantAnimation glide_;
};

}  // namespace qt
