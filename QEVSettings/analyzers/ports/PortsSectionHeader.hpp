// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVSettings {

// The title above an analyzer's ports.
struct PortsSectionHeader {
  viewkit::View body() const;
};

}  // namespace QEVSettings
