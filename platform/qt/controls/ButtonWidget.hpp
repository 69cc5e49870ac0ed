#pragma once

#include "controls/ControlWidget.hpp"

#include <QAbstractButton>
#include <QStyleOption>

namespace qt {

// What all controls that are pressed have in common: Space and Return press them too.
class ButtonWidget : public QAbstractButton, public ControlWidget {
public:
  ButtonWidget(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  bool performPress() override;
  bool isAtRest() const override { return !isDown() && ControlWidget::isAtRest(); }

protected:
  virtual void press() = 0;
  // Presses the control as the newest views describe it: a press may follow another one before the
  // views were brought up to date.
  void pressUpToDate();

  void keyPressEvent(QKeyEvent* event) override;
  // Hovered, pressed, enabled, and the colours to draw with.
  QStyleOption styleOption() const;
};

}  // namespace qt
