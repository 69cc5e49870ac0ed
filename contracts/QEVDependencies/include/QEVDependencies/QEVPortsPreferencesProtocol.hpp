#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"

#include <memory>

namespace QEVDependencies {

// What a plug-in's preferences object adopts when the plug-in owns protocol ports. Main thread. The
// settings hold it weakly: a plug-in that is unloaded stops receiving calls.
class QEVPortsPreferencesProtocol {
public:
  QEVPortsPreferencesProtocol() = default;
  QEVPortsPreferencesProtocol(const QEVPortsPreferencesProtocol&) = delete;
  QEVPortsPreferencesProtocol& operator=(const QEVPortsPreferencesProtocol&) = delete;
  virtual ~QEVPortsPreferencesProtocol() = default;

  // The running analyzer is to go by `current` in place of `old`. The change is in the member
  // `changed`; another member of `current` may hold a text that is still being typed. The list is
  // not stored yet. An implementation that cannot take the change over throws a QEVError, whose
  // message the user gets to see, or anything else: nothing is stored then. When it returns, the
  // change counts as registered.
  virtual void replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& old,
                                const std::shared_ptr<QEVNetworkProtocol>& current,
                                QEVNetworkProtocolProperty changed) = 0;

  // The list is the factory list from now on, when `reset` is true. What it throws is shown on the
  // page; the factory list is stored all the same.
  virtual void setDefaultSettings(bool reset) = 0;
};

}  // namespace QEVDependencies
