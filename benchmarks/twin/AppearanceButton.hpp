// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>

namespace twin {

// A small picture of a window in the colours of an appearance, with the appearance's name below.
class AppearanceButton final : public QAbstractButton {
public:
  AppearanceButton(const QString& name, QColor window, QColor content, QWidget* parent);

  QSize sizeHint() const override { return {84, 80}; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QColor window_;
  QColor content_;
};

}  // namespace twin
