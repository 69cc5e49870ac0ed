#pragma once

#include "controls/ControlWidget.hpp"

#include <QTextEdit>

namespace qt {

// Text that a person can select and copy, with the mouse or the keyboard.
class SelectableText : public QTextEdit, public ControlWidget {
public:
  SelectableText(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  void refresh() override;
  appkit::Responder& responder() override { return textResponder_; }

protected:
  void startAnew() override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  appkit::Text textResponder_;
};

}  // namespace qt
