// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortsSectionHeader.hpp"

#include "rows/SettingsSectionHeader.hpp"

namespace QEVSettings {

viewkit::View PortsSectionHeader::body() const {
  return SettingsSectionHeader{.titleKey = "Ports",
                               .systemImage = "app.connected.to.app.below.fill"};
}

}  // namespace QEVSettings
