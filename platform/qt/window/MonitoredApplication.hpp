#pragma once

#include <QApplication>

#include <functional>
#include <utility>

namespace qt {

// Passes each key press through appkit's monitors before its window receives it, except in menus
// and dialogs, and reports new colors.
class MonitoredApplication : public QApplication {
public:
  using QApplication::QApplication;

  // Called when the palette of the application or the theme of the desktop changed.
  void onNewColors(std::function<void()> changed) { newColors_ = std::move(changed); }

  bool notify(QObject* receiver, QEvent* event) override;

private:
  bool notifyOfPress(QObject* receiver, QEvent* event);

  std::function<void()> newColors_;
  // The press that is being delivered. Qt may offer it to several receivers, the monitors see it
  // once.
  const QEvent* passing_ = nullptr;
};

}  // namespace qt
