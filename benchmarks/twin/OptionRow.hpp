// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerToggleSpec.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QWidget>

namespace twin {

class SwitchButton;

// Icon, label and switch of one option, bound to its key in the store. Highlighted while hovered.
class OptionRow final : public QWidget {
public:
  // The store outlives the row.
  OptionRow(const QEVDependencies::AnalyzerToggleSpec& option, QEVSettings::PreferencesStore& store,
            QWidget* parent);

protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  SwitchButton* switch_;
  QEVSettings::Subscription stored_;
};

}  // namespace twin
