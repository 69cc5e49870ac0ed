#pragma once

#include "controls/ControlWidget.hpp"

#include <QTextEdit>

namespace qt {

// Text that a person types, in one line or a few. Every keystroke is told at once; Return commits,
// leaving the field ends the editing.
class TextField : public QTextEdit, public ControlWidget {
public:
  TextField(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

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
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

private:
  // As the view gave it, with nothing to undo.
  void showAtFirst(const QString& text);
  void textEdited();

  appkit::Text textResponder_;
  QString told_;
  bool refreshing_ = false;
  bool composing_ = false;
};

}  // namespace qt
