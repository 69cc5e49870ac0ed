#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "qt/Window.hpp"
#include "viewkit/Environment.hpp"

#include <QMainWindow>

#include <functional>
#include <memory>

namespace zorvantine {

// The host's main window: its menus and a packet list, which is made of the same views as the
// settings.
class MainWindow final : public QMainWindow {
public:
  struct Parts {
    viewkit::Environment environment;
    std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
    std::function<void()> openSettings;
    // Called when the person closes the window or quits.
    std::function<void()> closed;
  };

  explicit MainWindow(Parts parts);
  ~MainWindow() override;

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void addMenus();

  Parts parts_;
  std::unique_ptr<qt::Window> content_;
};

}  // namespace zorvantine
