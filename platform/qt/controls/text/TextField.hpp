// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ControlWidget.hpp"

#include <QTextEdit>

namespace qt {

// A text field of one line or a few. Each keystroke is reported at once. Return commits; losing the
// focus ends the editing. Its context menu has the text commands, and below them the items of the
// view around it.
class TextField : public QTextEdit, public ControlWidget {
public:
  TextField(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  static QSizeF sizeFor(const viewkit::TextFieldControl& field,
                        const viewkit::ProposedSize& proposal);

  QWidget& widget() override { return *this; }
  void refresh() override;
  void endEditing() override;
  bool shows(const viewkit::PresentationNode& node) const override;
  appkit::Responder& responder() override { return textResponder_; }

protected:
  void startAnew() override;
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

private:
  // Shows the text of the view, with nothing to undo.
  void showInitial(const QString& text);
  void textEdited();
  void updateMargins();

  appkit::Text textResponder_;
  // The text that the view knows: the last that it gave or that was reported to it.
  QString reported_;
  bool refreshing_ = false;
  // Whether an input method is composing a text.
  bool composing_ = false;
};

}  // namespace qt
