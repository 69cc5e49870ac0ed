// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ProxyAddress.hpp"
#include "foundation/ObservableObject.hpp"

#include <optional>
#include <string>
#include <vector>

namespace QEVDependencies {

// The host's interception proxy, as its settings page sees it. The service keeps its settings
// itself, and announces each change of a getter's result before the change. Main thread.
//
//     void ProxyService::setEnabled(bool enabled) {  // ProxyService is the host's
//       objectWillChange().announce();
//       store_.setBool(enabled, kEnabledKey);
//     }
class ProxyServiceProtocol : public foundation::ObservableObject {
public:
  // A setting of the page.
  enum class Setting { enabled, listeningAddress, upstream, interceptsTLS, certificatePath };

  // Whether an administrator has locked the setting, so that the page must not change it.
  virtual bool isManaged(Setting) const { return false; }

  // The keys under which the service stores the setting in the preferences store; none when it
  // keeps the setting elsewhere.
  virtual std::vector<std::string> keysOf(Setting) const { return {}; }

  // Whether the proxy is meant to run.
  virtual bool isEnabled() const = 0;
  virtual void setEnabled(bool enabled) = 0;

  // Why the proxy does not run although it is enabled, in one line that says what to do.
  virtual std::optional<std::string> problem() const = 0;

  // Where applications reach the proxy. A setter is called with valid addresses only.
  virtual ProxyAddress listeningAddress() const = 0;
  virtual void setListeningAddress(ProxyAddress address) = 0;

  // The proxy that all traffic is sent on to; none when traffic goes straight to its destination.
  virtual std::optional<ProxyAddress> upstream() const = 0;
  virtual void setUpstream(std::optional<ProxyAddress> upstream) = 0;

  // Whether encrypted connections are decrypted; if not, they pass unread.
  virtual bool interceptsTLS() const = 0;
  virtual void setInterceptsTLS(bool intercepts) = 0;

  // The file of the certificate that applications must trust, once there is one.
  virtual std::optional<std::string> certificatePath() const = 0;
  virtual void setCertificatePath(std::optional<std::string> path) = 0;
};

}  // namespace QEVDependencies
