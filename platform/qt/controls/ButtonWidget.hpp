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
  // Updates the views, then presses the control: the views may still have to take over the result
  // of the press before this one.
  void pressUpToDate();

  void keyPressEvent(QKeyEvent* event) override;
  // The state and the palette to paint with.
  QStyleOption styleOption() const;
};

}  // namespace qt
