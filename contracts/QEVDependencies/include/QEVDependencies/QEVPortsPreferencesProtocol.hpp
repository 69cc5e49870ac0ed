// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"

#include <memory>

namespace QEVDependencies {

// Implemented by the preferences object of a plug-in that has protocol ports. The settings do not
// own it: an unloaded plug-in receives no more calls. Main thread.
//
//     void DNSPreferences::replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& old,
//                                           const std::shared_ptr<QEVNetworkProtocol>& current,
//                                           QEVNetworkProtocolProperty /*changed*/) {
//       if (!analyzer_.replace(*old, *current)) throw QEVError::analyzerRefusedChange;
//     }
class QEVPortsPreferencesProtocol {
public:
  QEVPortsPreferencesProtocol() = default;
  QEVPortsPreferencesProtocol(const QEVPortsPreferencesProtocol&) = delete;
  QEVPortsPreferencesProtocol& operator=(const QEVPortsPreferencesProtocol&) = delete;
  virtual ~QEVPortsPreferencesProtocol() = default;

  // Replaces `old` by `current` in the running analyzer. The two differ in the member `changed`;
  // another member of `current` may hold a text that is still being typed. The list is not stored
  // yet. To refuse the change, throw: a QEVError's message is shown to the user, and nothing is
  // stored. After a return, the change counts as registered.
  virtual void replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& old,
                                const std::shared_ptr<QEVNetworkProtocol>& current,
                                QEVNetworkProtocolProperty changed) = 0;

  // With `reset` true, makes the running analyzer use the default list. An exception is shown on
  // the page; the default list is stored nevertheless.
  virtual void setDefaultSettings(bool reset) = 0;
};

}  // namespace QEVDependencies
