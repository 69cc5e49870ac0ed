#pragma once

#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <memory>
#include <utility>

namespace QEVSettings {

// The page of the interception proxy, for the host to hand to QEVSettingsView: a title and the form
// of the host's own service, which is observed and shared, never null. Main thread.
class ProxySettingsView {
public:
  explicit ProxySettingsView(std::shared_ptr<QEVDependencies::ProxyServiceProtocol> service)
      : service_(std::move(service)) {}

  viewkit::View body() const;

private:
  viewkit::ObservedObject<QEVDependencies::ProxyServiceProtocol> service_;
};

}  // namespace QEVSettings
