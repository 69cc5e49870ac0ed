#pragma once

#include <QApplication>

namespace qt {

// Shows each key press to appkit's monitors before the window that it is meant for, unless that is a menu
// or a dialog.
class MonitoredApplication : public QApplication {
public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

private:
  // The press on its way from one receiver to the next: the monitors see it once.
  const QEvent* passing_ = nullptr;
};

}  // namespace qt
