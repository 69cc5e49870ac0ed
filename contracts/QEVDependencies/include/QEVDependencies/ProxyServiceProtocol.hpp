#pragma once

#include "QEVDependencies/ProxyAddress.hpp"
#include "foundation/ObservableObject.hpp"

#include <optional>
#include <string>

namespace QEVDependencies {

// The host's interception proxy, as its settings page sees it. The service keeps its own settings,
// and announces each change of what it says before it happens. A setter is given valid addresses
// only. Main thread.
class ProxyServiceProtocol : public foundation::ObservableObject {
public:
  // Whether the proxy is meant to run.
  virtual bool isEnabled() const = 0;
  virtual void setEnabled(bool enabled) = 0;

  // Why the proxy does not run although it is enabled, in one line that says what to do; empty when
  // all is well.
  virtual std::string problem() const = 0;

  // Where applications reach the proxy.
  virtual ProxyAddress listeningAddress() const = 0;
  virtual void setListeningAddress(ProxyAddress address) = 0;

  // The proxy that all traffic is handed on to; nothing when it goes straight to its destination.
  virtual std::optional<ProxyAddress> upstream() const = 0;
  virtual void setUpstream(std::optional<ProxyAddress> upstream) = 0;

  // Whether encrypted connections are opened; if not, they pass unread.
  virtual bool interceptsTLS() const = 0;
  virtual void setInterceptsTLS(bool intercepts) = 0;

  // The file with the certificate that applications must trust; empty while there is none.
  virtual std::string certificatePath() const = 0;
};

}  // namespace QEVDependencies
