// SPDX-License-Identifier: MIT
#pragma once

#include <QCloseEvent>
#include <QKeyEvent>

namespace qt {

// A chooser without buttons, made of one of Qt's dialogs: Return and closing it keep what the
// user picked, and Escape rejects it.
template <class Dialog>
class ChooserDialog final : public Dialog {
public:
  using Dialog::Dialog;

protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      this->accept();
    } else {
      Dialog::keyPressEvent(event);
    }
  }

  void closeEvent(QCloseEvent* event) override {
    event->accept();
    this->accept();
  }
};

}  // namespace qt
