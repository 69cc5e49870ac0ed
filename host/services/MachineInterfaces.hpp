// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/NetworkInterfaces.hpp"

#include <vector>

namespace zorvantine {

// The machine's network interfaces at the time of each call, in the system's order.
class MachineInterfaces final : public QEVCoreComponents::NetworkInterfaces {
public:
  std::vector<QEVCoreComponents::NetworkInterface> all() const override;
};

}  // namespace zorvantine
