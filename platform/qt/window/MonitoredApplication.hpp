#pragma once

#include <QApplication>

#include <functional>
#include <utility>

namespace qt {

// Shows each key press to appkit's monitors before the window that it is meant for, unless that is
// a menu or a dialog, and tells of new colours.
class MonitoredApplication : public QApplication {
public:
  using QApplication::QApplication;

  // Called while the application's palette or the desktop's theme is new, whoever changed it.
  void onNewColors(std::function<void()> changed) { newColors_ = std::move(changed); }

  bool notify(QObject* receiver, QEvent* event) override;

private:
  bool notifyOfPress(QObject* receiver, QEvent* event);

  std::function<void()> newColors_;
  // The press on its way from one receiver to the next: the monitors see it once.
  const QEvent* passing_ = nullptr;
};

}  // namespace qt
