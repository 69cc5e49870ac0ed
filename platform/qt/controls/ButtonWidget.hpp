// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"

#include <QAbstractButton>
#include <QStyleOption>

namespace qt {

// The base of all controls that are pressed: by the mouse, Space or Return.
class ButtonWidget : public QAbstractButton, public ControlWidget {
public:
  ButtonWidget(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  bool performPress() override;
  bool isAtRest() const override { return !isDown() && ControlWidget::isAtRest(); }

protected:
  virtual void press() = 0;
  // Updates the views, presses the control, and updates the views again. The first update takes
  // over the result of an earlier press. The second one comes before Qt paints the released button,
  // so that one painting shows the result. Without it, a switch takes 1.3 times as long to change.
  void pressUpToDate();

  void keyPressEvent(QKeyEvent* event) override;
  // Qt calls this when the button is released, before it paints the button as released.
  void nextCheckState() override { pressUpToDate(); }
  // The state and the palette to paint with.
  QStyleOption styleOption() const;
};

}  // namespace qt
