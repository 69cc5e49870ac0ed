// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>

#include <vector>

namespace qt {

// An event filter of the application that shows each key press to appkit's monitors, once and
// before its receiver. Presses in menus, and in dialogs without a settings window in them, are left
// out.
class KeyMonitors final : public QObject {
public:
  // Presses in a dialog that contains `page` are shown to the monitors too.
  void add(const QWidget& page);
  void remove(const QWidget& page) { std::erase(pages_, &page); }

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool isForPlatform() const;
  void deliver(QObject& receiver, QEvent& press);

  std::vector<const QWidget*> pages_;
  // The press that is being delivered. The monitors have seen it.
  const QEvent* passing_ = nullptr;
  // A press that nobody accepted, which Qt hands on to the ancestors of its first receiver.
  const QEvent* ignored_ = nullptr;
};

}  // namespace qt
