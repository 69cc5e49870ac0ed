#pragma once

#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVCoreComponents {

// Shows and edits the settings of an interception proxy. Whatever it changes, it changes in the
// service; a value that the rules forbid stays in its field, with the reason under it.
struct ProxySetupForm {
  viewkit::ObservedObject<QEVDependencies::ProxyServiceProtocol> service;

  viewkit::View body() const;
};

}  // namespace QEVCoreComponents
