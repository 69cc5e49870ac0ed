// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"
#include "window/PacketListModel.hpp"

#include <functional>
#include <memory>

namespace zorvantine {

// The content of the main window: sample packets in the font, colours and time zone that the
// settings name, a button that opens the settings, and one that checks for updates.
struct PacketListView {
  viewkit::ObservedObject<PacketListModel> model;
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
  std::function<void()> openSettings;

  viewkit::View body() const;
};

}  // namespace zorvantine
