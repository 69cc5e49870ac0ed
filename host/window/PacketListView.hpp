#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"
#include "window/PacketListModel.hpp"

#include <functional>
#include <memory>

namespace zorvantine {

// The content of the main window: sample packets as the settings want them listed, the time zone of
// their times, and the ways to the settings and to a newer version.
struct PacketListView {
  viewkit::ObservedObject<PacketListModel> model;
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
  std::function<void()> openSettings;

  viewkit::View body() const;
};

}  // namespace zorvantine
