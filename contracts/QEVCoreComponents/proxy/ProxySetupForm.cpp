// SPDX-License-Identifier: MIT
#include "QEVCoreComponents/ProxySetupForm.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/MessageText.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/SettingRow.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVDependencies/ProxyAddress.hpp"
#include "fields/CheckedTextField.hpp"
#include "fields/FormGrid.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace QEVCoreComponents {

using namespace viewkit;
using QEVCommonTools::localized;
using QEVCommonTools::managed;
using QEVCommonTools::MessageKind;
using QEVCommonTools::messageText;
using QEVCommonTools::points;
using QEVCommonTools::settingRow;
using QEVCommonTools::Spacing;
using QEVCommonTools::trimmed;
using QEVDependencies::ProxyAddress;
using QEVDependencies::ProxyServiceProtocol;

namespace {

constexpr double kHostWidth = 220;
constexpr double kPortWidth = 80;
// For an upstream proxy of which so far only the host is known.
constexpr std::uint16_t kUsualProxyPort = 8080;

using Service = std::shared_ptr<ProxyServiceProtocol>;
using Setting = ProxyServiceProtocol::Setting;
using TakeAddress = std::function<void(ProxyAddress)>;

std::optional<std::string> takeHost(std::string_view text, std::uint16_t port,
                                    const TakeAddress& take) {
  const auto host = QEVDependencies::validatedProxyHost(text);
  if (!host) return localized(host.error().message);
  take({.host = *host, .port = port});
  return std::nullopt;
}

std::optional<std::string> takePort(std::string_view text, const std::string& host,
                                    const TakeAddress& take) {
  const auto port = QEVDependencies::validatedProxyPort(text);
  if (!port) return localized(port.error().message);
  take({.host = host, .port = *port});
  return std::nullopt;
}

View addressFields(const View& host, const View& port) {
  return HStack({.alignment = VerticalAlignment::top, .spacing = points(Spacing::s5)},
                {
                    host.frame(FixedFrame{.width = kHostWidth}),
                    port,
                });
}

View listeningAddress(const Service& service) {
  const ProxyAddress address = service->listeningAddress();
  const TakeAddress take = [service](ProxyAddress taken) {
    service->setListeningAddress(std::move(taken));
  };

  return addressFields(
      CheckedTextField{.label = localized("Listening address"),
                       .value = address.host,
                       .commit =
                           [=](std::string_view text) {
                             return takeHost(text, service->listeningAddress().port, take);
                           },
                       .isManaged = service->isManaged(Setting::listeningAddress)},
      CheckedTextField{.label = localized("Listening port"),
                       .value = std::to_string(address.port),
                       .commit =
                           [=](std::string_view text) {
                             return takePort(text, service->listeningAddress().host, take);
                           },
                       .isManaged = service->isManaged(Setting::listeningAddress),
                       .width = fieldWidth(kPortWidth, "65535")});
}

View upstream(const Service& service) {
  const std::optional<ProxyAddress> address = service->upstream();
  const auto known = [service] {
    return service->upstream().value_or(ProxyAddress{.host = "", .port = kUsualProxyPort});
  };
  const TakeAddress take = [service](ProxyAddress taken) {
    service->setUpstream(std::move(taken));
  };
  const auto takeOrClear = [=](std::string_view text) -> std::optional<std::string> {
    if (!trimmed(text).empty()) return takeHost(text, known().port, take);
    service->setUpstream(std::nullopt);
    return std::nullopt;
  };
  // Somebody else may have cleared the upstream proxy while its port was being typed.
  const auto takePortOfUpstream = [=](std::string_view text) -> std::optional<std::string> {
    const std::optional<ProxyAddress> current = service->upstream();
    return current ? takePort(text, current->host, take) : std::nullopt;
  };

  return addressFields(CheckedTextField{.label = localized("Upstream proxy"),
                                        .placeholder = localized("none"),
                                        .value = known().host,
                                        .commit = takeOrClear,
                                        .isManaged = service->isManaged(Setting::upstream)},
                       View(CheckedTextField{.label = localized("Upstream port"),
                                             .value = address ? std::to_string(address->port) : "",
                                             .commit = takePortOfUpstream,
                                             .isManaged = service->isManaged(Setting::upstream),
                                             .width = fieldWidth(kPortWidth, "65535")})
                           .disabled(!address));
}

// A path that is typed, or picked in a chooser of files.
View certificate(const Service& service) {
  const std::string label = localized("Certificate");
  const auto take = [service](std::string_view text) -> std::optional<std::string> {
    const std::string_view path = trimmed(text);
    service->setCertificatePath(path.empty() ? std::nullopt : std::optional(std::string(path)));
    return std::nullopt;
  };
  const Binding<std::string> picked{
      [service] { return service->certificatePath().value_or(""); },
      [service](std::string path) { service->setCertificatePath(std::move(path)); }};

  const bool isManaged = service->isManaged(Setting::certificatePath);
  return HStack({.spacing = points(Spacing::s5)},
                {
                    CheckedTextField{.label = label,
                                     .placeholder = localized("no certificate yet"),
                                     .value = service->certificatePath().value_or(""),
                                     .commit = take,
                                     .isManaged = isManaged},
                    FileButton(localized("Choose…"), picked).help(label).disabled(isManaged),
                });
}

}  // namespace

View proxySetupRows(const Service& proxy) {
  const std::string enabled = localized("Proxy");
  const std::string intercepts = localized("Intercept TLS");

  return formGrid({
      formRow(enabled,
              HStack({.spacing = points(Spacing::s6)},
                     {
                         managed(Toggle({[proxy] { return proxy->isEnabled(); },
                                         [proxy](bool isOn) { proxy->setEnabled(isOn); }},
                                        ToggleControl::Size::small)
                                     .accessibilityLabel(enabled),
                                 proxy->isManaged(Setting::enabled)),
                         messageText(proxy->problem().value_or(""), MessageKind::problem),
                         Spacer(0),
                     }),
              proxy->keysOf(Setting::enabled)),
      formRow(localized("Listening address"), listeningAddress(proxy),
              proxy->keysOf(Setting::listeningAddress)),
      formRow(localized("Upstream proxy"), upstream(proxy), proxy->keysOf(Setting::upstream)),
      formRow(intercepts,
              HStack({.spacing = points(Spacing::s6)},
                     {
                         settingRow(
                             proxy->keysOf(Setting::interceptsTLS),
                             managed(Toggle({[proxy] { return proxy->interceptsTLS(); },
                                             [proxy](bool isOn) { proxy->setInterceptsTLS(isOn); }},
                                            ToggleControl::Size::small)
                                         .accessibilityLabel(intercepts),
                                     proxy->isManaged(Setting::interceptsTLS))),
                         settingRow(proxy->keysOf(Setting::certificatePath), certificate(proxy)),
                     })),
  });
}

}  // namespace QEVCoreComponents
