// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ErrorViewModel.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"
#include "QEVDependencies/QEVPortsControllerProtocol.hpp"
#include "foundation/JSON.hpp"
#include "foundation/JSONWriter.hpp"
#include "foundation/ObservableObject.hpp"
#include "foundation/Result.hpp"
#include "foundation/UUID.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVDependencies {

// A protocol that an analyzer recognises, with the ports and the transport on which it is expected.
// Shared pointers own the records. Main thread.
//
// An assignment of the name, the ports or the source is announced before it changes the record.
//
//     protocol->protocolPorts = "80,8000-8010";
class QEVNetworkProtocol final : public foundation::ObservableObject {
public:
  // The record starts as registered with these values.
  QEVNetworkProtocol(foundation::UUID id, std::string protocolName, std::string protocolPorts,
                     std::int64_t sourceProtocol, std::optional<std::string> ethertype,
                     std::optional<std::string> linktype, std::optional<std::int64_t> size);

  const foundation::UUID& id() const { return id_; }

  // Empty until a name is chosen.
  foundation::Published<std::string> protocolName;
  // In the validator's normal form, or the text that the user is typing.
  foundation::Published<std::string> protocolPorts;
  // The raw value of a kQEVSourceProtocols case. Any other value counts as `none`.
  foundation::Published<std::int64_t> sourceProtocol;

  const std::optional<std::string>& ethertype() const { return ethertype_; }
  const std::optional<std::string>& linktype() const { return linktype_; }
  std::optional<std::int64_t> size() const { return size_; }

  // The values that an analyzer last accepted. The ports controller keeps them up to date.
  const std::string& lastRegisteredName() const { return lastRegisteredName_; }
  const std::string& lastRegisteredPorts() const { return lastRegisteredPorts_; }
  std::int64_t lastRegisteredSource() const { return lastRegisteredSource_; }

  const std::shared_ptr<ErrorViewModel>& errorModel() const { return errorModel_; }

  // The controller that the record reports to. The record does not own it.
  void setPortController(std::weak_ptr<QEVPortsControllerProtocol> controller);
  bool hasPortController() const { return !portController_.expired(); }

  // Makes the record announce the changes of its error model as its own, so that a view needs to
  // observe the record only. Call it once, before the record is shown.
  void setupBinding();

  // Reports the member's current value to the controller as registered. Call it after the analyzer
  // has accepted a change. Without a controller it does nothing.
  void reportRegistered(QEVNetworkProtocolProperty changed);

  // Updates a record that is being edited from its stored version. A name, ports or a source that
  // differ from the last registered ones are copied, except that a ports text which the user has
  // typed and which is not registered yet stays. All other members are copied, and the stored
  // values become the last registered ones. Returns whether the name, the ports or the source
  // changed.
  bool takeOver(const QEVNetworkProtocol& stored);

  // The three values that the user edits.
  struct Values {
    std::string_view name;
    std::string_view ports;
    std::int64_t source = 0;
  };
  Values values() const { return {protocolName.get(), protocolPorts.get(), sourceProtocol.get()}; }
  Values lastRegisteredValues() const {
    return {lastRegisteredName_, lastRegisteredPorts_, lastRegisteredSource_};
  }

  // Writes the record as a JSON object with the members "id", "protocolName", "protocolPorts" and
  // "sourceProtocol", and with "ethertype", "linktype" and "size" if it has them. A decoded record
  // also writes the unknown members that it was read with, and keeps the spelling of every member
  // that has not changed.
  void encode(foundation::JSONWriter& writer) const { encode(writer, values()); }
  // The same with other values instead of the record's own.
  void encode(foundation::JSONWriter& writer, const Values& values) const;

  // Reads a record from such an object.
  //
  // Fails when the value is not an object, when "protocolName" is not a string, or when
  // "protocolPorts" is neither a string nor an integer nor an array of these. An array is read as
  // its elements joined by commas. Any other member may be missing or have the wrong type: the
  // record then has a new id, no ports, the source `none`, or no ethertype, linktype or size.
  static foundation::Result<std::shared_ptr<QEVNetworkProtocol>> decoded(
      const foundation::JSON& json);

  // An independent copy, equal to the result of decoding the encoded record. JSON is needed for it
  // only when a text is not valid UTF-8, which a plug-in can cause.
  foundation::Result<std::shared_ptr<QEVNetworkProtocol>> copied() const;

private:
  friend class QEVPortsControllerProtocol;

  foundation::UUID id_;
  std::optional<std::string> ethertype_;
  std::optional<std::string> linktype_;
  std::optional<std::int64_t> size_;
  std::string lastRegisteredName_;
  std::string lastRegisteredPorts_;
  std::int64_t lastRegisteredSource_;
  std::shared_ptr<ErrorViewModel> errorModel_ = std::make_shared<ErrorViewModel>();
  std::weak_ptr<QEVPortsControllerProtocol> portController_;
  foundation::Subscription errorWillChange_;
  std::optional<foundation::JSON> source_;  // the object that the record was decoded from
};

using QEVNetworkProtocolList = std::vector<std::shared_ptr<QEVNetworkProtocol>>;

}  // namespace QEVDependencies
