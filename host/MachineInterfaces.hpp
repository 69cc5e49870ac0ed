#pragma once

#include "QEVCoreComponents/NetworkInterfaces.hpp"

#include <vector>

namespace zorvantine {

// The network interfaces that the machine has at the moment of asking, in the system's order.
class MachineInterfaces final : public QEVCoreComponents::NetworkInterfaces {
public:
  std::vector<QEVCoreComponents::NetworkInterface> all() const override;
};

}  // namespace zorvantine
