// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace twin {

// An on/off switch.
class SwitchButton final : public QAbstractButton {
public:
  explicit SwitchButton(QWidget* parent);

  QSize sizeHint() const override { return {34, 22}; }

protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace twin
