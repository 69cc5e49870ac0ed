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
// Held by shared pointer; main thread.
//
// Every assignment of the name, the ports or the source announces itself before it happens.
//
//     protocol->protocolPorts = "80,8000-8010";
class QEVNetworkProtocol final : public foundation::ObservableObject {
public:
  // The record counts as registered with the values given.
  QEVNetworkProtocol(foundation::UUID id, std::string protocolName, std::string protocolPorts,
                     std::int64_t sourceProtocol, std::optional<std::string> ethertype,
                     std::optional<std::string> linktype, std::optional<std::int64_t> size);

  const foundation::UUID& id() const { return id_; }

  // The empty name means that none has been chosen yet.
  foundation::Published<std::string> protocolName;
  // In the validator's normal form, or what the user is just typing.
  foundation::Published<std::string> protocolPorts;
  // The raw value of a kQEVSourceProtocols case; any other counts as none.
  foundation::Published<std::int64_t> sourceProtocol;

  const std::optional<std::string>& ethertype() const { return ethertype_; }
  const std::optional<std::string>& linktype() const { return linktype_; }
  std::optional<std::int64_t> size() const { return size_; }

  // What the record said when an analyzer last took it over. A ports controller keeps them up to
  // date.
  const std::string& lastRegisteredName() const { return lastRegisteredName_; }
  const std::string& lastRegisteredPorts() const { return lastRegisteredPorts_; }
  std::int64_t lastRegisteredSource() const { return lastRegisteredSource_; }

  const std::shared_ptr<ErrorViewModel>& errorModel() const { return errorModel_; }

  // The controller that the record reports to; the record does not keep it alive.
  void setPortController(std::weak_ptr<QEVPortsControllerProtocol> controller);
  bool hasPortController() const { return !portController_.expired(); }

  // Makes the record announce its error model's changes as its own, so that who shows the record
  // need watch nothing else. To be called once, before the record is shown.
  void setupBinding();

  // Tells the record's controller that the member has been registered as it stands. Whoever changed
  // it calls this after the analyzer took the change over. Without a controller nothing happens.
  void reportRegistered(QEVNetworkProtocolProperty changed);

  // Brings the record, which is being edited, up to date with what is stored for it now. A name,
  // ports or a source that were stored anew since the record was last registered are taken over,
  // but for a ports text that was typed and is not registered yet: it stays. Everything else comes
  // from `stored`, which then counts as registered. Returns whether a name, ports or a source
  // changed.
  bool takeOver(const QEVNetworkProtocol& stored);

  // The three values that a person edits.
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
  // "sourceProtocol", and "ethertype", "linktype" and "size" where there is one. A record that was
  // decoded keeps the other members it came with, and the exact text of those that nobody changed.
  void encode(foundation::JSONWriter& writer) const { encode(writer, values()); }
  // The same with other values in place of the record's own.
  void encode(foundation::JSONWriter& writer, const Values& values) const;

  // The record of such an object.
  //
  // Fails when the value is no object, when "protocolName" is no string, or when "protocolPorts" is
  // neither a string nor an integer nor an array of these; such an array reads as its elements
  // joined by commas. Every other member may be missing or of the wrong type: the record then has
  // an identity of its own, no ports, no source, no ethertype, no linktype and no size in its
  // place.
  static foundation::Result<std::shared_ptr<QEVNetworkProtocol>> decoded(
      const foundation::JSON& json);

  // A record whose changes do not reach this one: what decoding the encoded record gives. Where all
  // texts are UTF-8, as they are unless a plug-in made them otherwise, no JSON text is made for it.
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
