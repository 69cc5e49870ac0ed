// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/ProxySetupForm.hpp"
#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <concepts>
#include <memory>
#include <utility>

namespace QEVSettings {

// The layout of the proxy page: its header above the form.
viewkit::View proxySettingsPage(const viewkit::View& form);

// The page of the interception proxy, for the host to pass to QEVSettingsView. The service is
// shared, observed and never null. Main thread.
//
//     QEVSettingsView(updater, delegate, capture, tab, ProxySettingsView(service));
template <std::derived_from<QEVDependencies::ProxyServiceProtocol> Service>
class ProxySettingsView {
public:
  explicit ProxySettingsView(std::shared_ptr<Service> service) : service_(std::move(service)) {}

  viewkit::View body() const {
    return proxySettingsPage(QEVCoreComponents::ProxySetupForm<Service>{.service = service_.get()});
  }

private:
  viewkit::ObservedObject<Service> service_;
};

}  // namespace QEVSettings
