// SPDX-License-Identifier: MIT
#include "QEVSettings/CheckForUpdatesView.hpp"

#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Controls.hpp"

#include <utility>

namespace QEVSettings {

CheckForUpdatesView::CheckForUpdatesView(std::shared_ptr<UpdaterViewModel> updaterViewModel)
    : updaterViewModel(std::move(updaterViewModel)) {}

viewkit::View CheckForUpdatesView::body() const {
  return viewkit::Button(localized("Check for Updates…"), "arrow.2.circlepath.circle",
                         [model = updaterViewModel.get()] { model->checkForUpdates(); })
      .disabled(!updaterViewModel->canCheckForUpdates.get());
}

}  // namespace QEVSettings
