// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "qt/Window.hpp"
#include "viewkit/Environment.hpp"
#include "window/EditMenu.hpp"

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
    std::shared_ptr<QEVSettings::ActionHistory> history;
    std::shared_ptr<QEVSettings::SettingsReset> reset;
    std::function<void()> openSettings;
    std::function<void()> openRecentChanges;
    // The names of the profiles, asked for each time the menu opens, and what chooses one.
    std::function<std::vector<std::string>()> profiles;
    std::function<void(const std::string&)> chooseProfile;
    // Called when the user closes the window or quits.
    std::function<void()> closed;
  };

  explicit MainWindow(Parts parts);
  ~MainWindow() override;

  // The content shows a store. It is closed before the store is, and shown again over another one.
  void closeContent();
  void showContent(viewkit::Environment environment,
                   std::shared_ptr<QEVSettings::UpdaterViewModel> updater);
  // What the Edit menu works on; `closeContent` takes it away.
  void setCommands(std::shared_ptr<QEVSettings::ActionHistory> history,
                   std::shared_ptr<QEVSettings::SettingsReset> reset);
  // Marks the profile that is shown.
  void setProfile(std::string name) { profile_ = std::move(name); }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void addMenus();
  void fillProfiles(QMenu& menu);

  Parts parts_;
  std::string profile_;
  std::unique_ptr<qt::Window> content_;
  std::unique_ptr<EditMenu> edit_;
};

}  // namespace zorvantine
