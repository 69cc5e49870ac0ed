// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <concepts>
#include <memory>

namespace QEVCoreComponents {

// The rows of ProxySetupForm for a service, without observing it.
viewkit::View proxySetupRows(const std::shared_ptr<QEVDependencies::ProxyServiceProtocol>& proxy);

// Shows and edits the settings of an interception proxy, which is shared and never null. A valid
// value goes to the service at once. An invalid one stays in its field, with the reason under it.
// Main thread.
//
//     auto service = std::make_shared<ProxyService>(store);  // the host's
//     const viewkit::View page = ProxySetupForm<ProxyService>{.service = service};
template <std::derived_from<QEVDependencies::ProxyServiceProtocol> Service>
struct ProxySetupForm {
  viewkit::ObservedObject<Service> service;

  viewkit::View body() const { return proxySetupRows(service.get()); }
};

}  // namespace QEVCoreComponents
