// SPDX-License-Identifier: MIT
#include "services/ProxyService.hpp"

#include "foundation/Bundle.hpp"

#include <utility>

namespace zorvantine {

using QEVDependencies::ProxyAddress;

namespace {

constexpr std::string_view kInitialHost = "localhost";
constexpr std::uint16_t kInitialPort = 8080;

std::string localized(std::string_view key) {
  return foundation::Bundle::mainBundle().localizedString(key);
}

std::string_view keyOf(ProxyService::Setting setting) {
  switch (setting) {
    case ProxyService::Setting::enabled: return ProxyService::kEnabled;
    case ProxyService::Setting::listeningAddress: return ProxyService::kListeningAddress;
    case ProxyService::Setting::upstream: return ProxyService::kUpstream;
    case ProxyService::Setting::interceptsTLS: return ProxyService::kInterceptsTLS;
    case ProxyService::Setting::certificatePath: break;
  }
  return ProxyService::kCertificatePath;
}

}  // namespace

ProxyService::ProxyService(QEVSettings::PreferencesStore& store)
    : store_(store), storeDidChange_(store.observeAll([this](std::string_view key) {
        if (key.starts_with(kKeyPrefix)) objectWillChange().announce();
      })) {}

bool ProxyService::isManaged(Setting setting) const { return store_.isLocked(keyOf(setting)); }

std::vector<std::string> ProxyService::keysOf(Setting setting) const {
  return {std::string(keyOf(setting))};
}

bool ProxyService::isEnabled() const { return store_.boolForKey(kEnabled); }

void ProxyService::setEnabled(bool enabled) { set(enabled, kEnabled); }

std::optional<std::string> ProxyService::problem() const {
  if (!isEnabled()) return std::nullopt;
  if (upstream() == listeningAddress()) {
    return localized(
        "The proxy would send its traffic to itself: give it another upstream proxy or port.");
  }
  if (interceptsTLS() && !certificatePath()) {
    return localized("Intercepting TLS needs a certificate: make one, or turn it off.");
  }
  return std::nullopt;
}

ProxyAddress ProxyService::listeningAddress() const {
  return address(kListeningAddress)
      .value_or(ProxyAddress{.host = std::string(kInitialHost), .port = kInitialPort});
}

void ProxyService::setListeningAddress(ProxyAddress address) {
  set(address.text(), kListeningAddress);
}

std::optional<ProxyAddress> ProxyService::upstream() const { return address(kUpstream); }

void ProxyService::setUpstream(std::optional<ProxyAddress> upstream) {
  set(upstream ? upstream->text() : std::string(), kUpstream);
}

bool ProxyService::interceptsTLS() const { return store_.boolForKey(kInterceptsTLS); }

void ProxyService::setInterceptsTLS(bool intercepts) { set(intercepts, kInterceptsTLS); }

std::optional<std::string> ProxyService::certificatePath() const {
  auto path = store_.stringForKey(kCertificatePath);
  return path && !path->empty() ? std::move(path) : std::nullopt;
}

void ProxyService::setCertificatePath(std::optional<std::string> path) {
  set(path.value_or(""), kCertificatePath);
}

void ProxyService::set(QEVSettings::PreferenceValue value, std::string_view key) {
  objectWillChange().announce();
  store_.setObject(std::move(value), key);
}

std::optional<ProxyAddress> ProxyService::address(std::string_view key) const {
  const auto text = store_.stringForKey(key);
  return text ? addressOf(*text) : std::nullopt;
}

}  // namespace zorvantine
