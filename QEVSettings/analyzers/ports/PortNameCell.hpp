// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>
#include <vector>

namespace QEVSettings {

// The name of a protocol, with the menu of the names that it can have.
struct PortNameCell {
  viewkit::ObservedObject<QEVDependencies::QEVNetworkProtocol> model;
  std::vector<std::string> names;
  std::function<void(const std::string&)> onPick;

  viewkit::View body() const;
};

}  // namespace QEVSettings
