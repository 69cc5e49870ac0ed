#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <memory>

namespace QEVSettings {

// A button that looks for a newer version of the application, for wherever the host wants it. It
// cannot be pressed while a check is under way.
struct CheckForUpdatesView {
  explicit CheckForUpdatesView(std::shared_ptr<UpdaterViewModel> updaterViewModel);

  viewkit::ObservedObject<UpdaterViewModel> updaterViewModel;

  viewkit::View body() const;
};

}  // namespace QEVSettings
