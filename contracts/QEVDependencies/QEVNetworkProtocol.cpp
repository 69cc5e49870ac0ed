// SPDX-License-Identifier: MIT
#include "QEVDependencies/QEVNetworkProtocol.hpp"

#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "foundation/Unicode.hpp"

#include <array>
#include <string_view>
#include <utility>

namespace QEVDependencies {

namespace {

using foundation::JSON;
using foundation::JSONWriter;

constexpr std::string_view kId = rawValue(QEVProtocolKonstants::id);
constexpr std::string_view kProtocolName = rawValue(QEVProtocolKonstants::protocolName);
constexpr std::string_view kProtocolPorts = rawValue(QEVProtocolKonstants::protocolPorts);
constexpr std::string_view kSourceProtocol = rawValue(QEVProtocolKonstants::sourceProtocol);
constexpr std::string_view kEthertype = rawValue(QEVProtocolKonstants::ethertype);
constexpr std::string_view kLinktype = rawValue(QEVProtocolKonstants::linktype);
constexpr std::string_view kSize = rawValue(QEVProtocolKonstants::size);

std::optional<std::string> stringMember(const JSON& json, std::string_view name) {
  const auto member = json.member(name);
  return member ? member->asString() : std::nullopt;
}

std::optional<std::int64_t> integerMember(const JSON& json, std::string_view name) {
  const auto member = json.member(name);
  return member ? member->asInteger() : std::nullopt;
}

std::int64_t sourceOf(const JSON& json) {
  return integerMember(json, kSourceProtocol).value_or(kQEVSourceProtocols::none);
}

std::optional<std::string> portText(const JSON& json) {
  return json.isString() ? json.asString() : json.integerText();
}

std::optional<std::string> portsOf(const JSON& json) {
  const auto member = json.member(kProtocolPorts);
  if (!member || member->isNull()) return "";
  if (!member->isArray()) return portText(*member);
  std::string result;
  bool isFirst = true;
  for (const JSON& element : member->elements()) {
    const auto port = portText(element);
    if (!port) return std::nullopt;
    if (!std::exchange(isFirst, false)) result += rawValue(QEVProtocolKonstants::portsSeparator);
    result += *port;
  }
  return result;
}

foundation::UUID identityOf(const JSON& json) {
  const auto text = stringMember(json, kId);
  const auto id = text ? foundation::UUID::parse(*text) : std::nullopt;
  return id ? *id : foundation::UUID::random();
}

}  // namespace

QEVNetworkProtocol::QEVNetworkProtocol(foundation::UUID id, std::string protocolName,
                                       std::string protocolPorts, std::int64_t sourceProtocol,
                                       std::optional<std::string> ethertype,
                                       std::optional<std::string> linktype,
                                       std::optional<std::int64_t> size)
    : protocolName(*this, std::move(protocolName)),
      protocolPorts(*this, std::move(protocolPorts)),
      sourceProtocol(*this, sourceProtocol),
      id_(id),
      ethertype_(std::move(ethertype)),
      linktype_(std::move(linktype)),
      size_(size),
      lastRegisteredName_(this->protocolName.get()),
      lastRegisteredPorts_(this->protocolPorts.get()),
      lastRegisteredSource_(sourceProtocol) {}

void QEVNetworkProtocol::setPortController(std::weak_ptr<QEVPortsControllerProtocol> controller) {
  portController_ = std::move(controller);
}

void QEVNetworkProtocol::setupBinding() {
  errorWillChange_ =
      errorModel_->objectWillChange().subscribe([this] { objectWillChange().announce(); });
}

void QEVNetworkProtocol::reportRegistered(QEVNetworkProtocolProperty changed) {
  if (const auto controller = portController_.lock()) controller->registered(*this, changed);
}

bool QEVNetworkProtocol::takeOver(const QEVNetworkProtocol& stored) {
  bool isChanged = false;
  const auto take = [&](auto& shown, const auto& registered, const auto& value) {
    if (value == registered || value == shown.get()) return;
    shown = value;
    isChanged = true;
  };
  const bool isBeingTyped = protocolPorts.get() != lastRegisteredPorts_;
  take(protocolName, lastRegisteredName_, stored.protocolName.get());
  take(sourceProtocol, lastRegisteredSource_, stored.sourceProtocol.get());
  if (!isBeingTyped) take(protocolPorts, lastRegisteredPorts_, stored.protocolPorts.get());

  lastRegisteredName_ = stored.protocolName.get();
  lastRegisteredPorts_ = stored.protocolPorts.get();
  lastRegisteredSource_ = stored.sourceProtocol.get();
  id_ = stored.id_;
  ethertype_ = stored.ethertype_;
  linktype_ = stored.linktype_;
  size_ = stored.size_;
  source_ = stored.source_;
  return isChanged;
}

void QEVNetworkProtocol::encode(JSONWriter& writer, const Values& values) const {
  writer.beginObject();
  std::array missing{kId,        kProtocolName, kProtocolPorts, kSourceProtocol,
                     kEthertype, kLinktype,     kSize};
  const auto write = [&](std::string_view name) {
    if (name == kId) writer.name(name).string(id_.text());
    if (name == kProtocolName) writer.name(name).string(values.name);
    if (name == kProtocolPorts) writer.name(name).string(values.ports);
    if (name == kSourceProtocol) writer.name(name).integer(values.source);
    if (name == kEthertype && ethertype_) writer.name(name).string(*ethertype_);
    if (name == kLinktype && linktype_) writer.name(name).string(*linktype_);
    if (name == kSize && size_) writer.name(name).integer(*size_);
  };
  if (source_) {
    const auto isOutOfDate = [&](const JSON::Member& member) {
      if (member.name == kProtocolName) return member.value.asString() != values.name;
      if (member.name == kProtocolPorts) return member.value.asString() != values.ports;
      return member.name == kSourceProtocol && sourceOf(*source_) != values.source;
    };
    for (const JSON::Member& member : source_->members()) {
      if (isOutOfDate(member)) {
        write(member.name);
      } else {
        writer.name(member.name).value(member.value);
      }
      for (auto& name : missing) {
        if (name == member.name) name = {};
      }
    }
  }
  for (const auto& name : missing) write(name);
  writer.endObject();
}

foundation::Result<std::shared_ptr<QEVNetworkProtocol>> QEVNetworkProtocol::decoded(
    const JSON& json) {
  if (!json.isObject()) return foundation::Error{"a protocol record must be an object"};
  auto name = stringMember(json, kProtocolName);
  if (!name)
    return foundation::Error{"a protocol record must have a \"protocolName\" that is a string"};
  auto ports = portsOf(json);
  if (!ports) return foundation::Error{"\"protocolPorts\" must be a string"};
  auto record = std::make_shared<QEVNetworkProtocol>(
      identityOf(json), *std::move(name), *std::move(ports), sourceOf(json),
      stringMember(json, kEthertype), stringMember(json, kLinktype), integerMember(json, kSize));
  record->source_ = json;
  return record;
}

foundation::Result<std::shared_ptr<QEVNetworkProtocol>> QEVNetworkProtocol::copied() const {
  const bool isUtf8 = foundation::isValidUtf8(protocolName.get()) &&
                      foundation::isValidUtf8(protocolPorts.get()) &&
                      foundation::isValidUtf8(ethertype_.value_or("")) &&
                      foundation::isValidUtf8(linktype_.value_or(""));
  if (isUtf8) {
    auto copy =
        std::make_shared<QEVNetworkProtocol>(id_, protocolName.get(), protocolPorts.get(),
                                             sourceProtocol.get(), ethertype_, linktype_, size_);
    copy->source_ = source_;  // immutable
    return copy;
  }
  // The writer replaces bytes that are not UTF-8.
  JSONWriter writer;
  encode(writer);
  const auto json = JSON::parse(writer.takeText());
  if (!json) return json.error();
  return decoded(*json);
}

}  // namespace QEVDependencies
