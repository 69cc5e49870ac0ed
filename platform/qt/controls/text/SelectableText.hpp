// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"

#include <QTextEdit>

namespace qt {

// A text that the user can select and copy, with the mouse or the keyboard.
class SelectableText : public QTextEdit, public ControlWidget {
public:
  SelectableText(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  QWidget& widget() override { return *this; }
  void refresh() override;
  QRect placeFor(const QRect& frame) const override;
  appkit::Responder& responder() override { return textResponder_; }

protected:
  void startAnew() override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  // Sets the color of the text in the current appearance. Called before each painting, because the
  // appearance may have changed.
  void applyColor(const viewkit::TextVisual& text);

  appkit::Text textResponder_;
};

}  // namespace qt
