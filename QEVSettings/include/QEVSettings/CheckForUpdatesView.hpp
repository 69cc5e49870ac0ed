// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <memory>

namespace QEVSettings {

// A button that checks for a newer version of the application. The host places it; the settings
// window does not show it. The button is disabled during a check. Main thread.
//
//     qt::Window window(
//         {.environment = {.defaultStore = store}, .root = CheckForUpdatesView(updater)});
struct CheckForUpdatesView {
  explicit CheckForUpdatesView(std::shared_ptr<UpdaterViewModel> updaterViewModel);

  viewkit::ObservedObject<UpdaterViewModel> updaterViewModel;

  viewkit::View body() const;
};

}  // namespace QEVSettings
