#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "qt/Window.hpp"
#include "viewkit/Environment.hpp"

#include <QMainWindow>

#include <functional>
#include <memory>

namespace zorvantine {

// The host's main window: its menus, and its content, which is made of the same views as the
// settings.
class MainWindow final : public QMainWindow {
public:
  struct Parts {
    viewkit::Environment environment;
    std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
    std::function<void()> openSettings;
    // The person closed the window, or quit, which is the same.
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
