// SPDX-License-Identifier: MIT
#include "services/ProxyService.hpp"

namespace zorvantine {

using QEVDependencies::ProxyAddress;
using QEVSettings::PreferenceDescriptor;
using QEVSettings::PreferenceValue;
using Type = PreferenceValue::Type;

namespace {

std::optional<std::string> addressRule(const PreferenceValue& value) {
  const std::string* text = value.asString();
  if (text != nullptr && ProxyService::addressOf(*text)) return std::nullopt;
  return "an address and a port, such as localhost:8080 or [::1]:8080";
}

std::optional<std::string> upstreamRule(const PreferenceValue& value) {
  const std::string* text = value.asString();
  if (text != nullptr && text->empty()) return std::nullopt;
  const auto wanted = addressRule(value);
  return wanted ? std::optional(*wanted + ", or an empty text for none") : std::nullopt;
}

}  // namespace

std::optional<ProxyAddress> ProxyService::addressOf(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  auto address = ProxyAddress::fromText(text.substr(0, colon), text.substr(colon + 1));
  return address ? std::optional(*std::move(address)) : std::nullopt;
}

std::vector<PreferenceDescriptor> ProxyService::descriptors() {
  return {
      {.key = std::string(kEnabled),
       .type = Type::boolean,
       .defaultValue = false,
       .title = "Proxy",
       .purpose = "Whether the interception proxy runs.",
       .place = {.tab = "proxy", .row = "Proxy"}},
      {.key = std::string(kListeningAddress),
       .type = Type::string,
       .defaultValue = kInitialAddress,
       .rule = addressRule,
       .title = "Listening address",
       .purpose = "Where applications reach the proxy.",
       .place = {.tab = "proxy", .row = "Listening address"}},
      {.key = std::string(kUpstream),
       .type = Type::string,
       .defaultValue = "",
       .rule = upstreamRule,
       .title = "Upstream proxy",
       .purpose = "The proxy that all traffic is sent on to; empty for none.",
       .place = {.tab = "proxy", .row = "Upstream proxy"}},
      {.key = std::string(kInterceptsTLS),
       .type = Type::boolean,
       .defaultValue = false,
       .title = "Intercept TLS",
       .purpose = "Whether the proxy decrypts encrypted connections.",
       .place = {.tab = "proxy", .row = "Intercept TLS"}},
      {.key = std::string(kCertificatePath),
       .type = Type::string,
       .defaultValue = "",
       .title = "Certificate",
       .purpose = "The file of the certificate that applications must trust; empty for none.",
       .place = {.tab = "proxy", .row = "Certificate"}},
  };
}

}  // namespace zorvantine
