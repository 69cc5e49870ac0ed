// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// The settings of the host's interception proxy. Their keys in the preferences store begin with
// kKeyPrefix. A stored value that cannot be read counts as the initial value. Main thread.
class ProxyService final : public QEVDependencies::ProxyServiceProtocol {
public:
  static constexpr std::string_view kKeyPrefix = "com_velloquin_zorvantine_proxy_";

  static constexpr std::string_view kEnabled = "com_velloquin_zorvantine_proxy_enabled";
  static constexpr std::string_view kListeningAddress =
      "com_velloquin_zorvantine_proxy_listeningAddress";
  static constexpr std::string_view kUpstream = "com_velloquin_zorvantine_proxy_upstream";
  static constexpr std::string_view kInterceptsTLS = "com_velloquin_zorvantine_proxy_interceptsTLS";
  static constexpr std::string_view kCertificatePath =
      "com_velloquin_zorvantine_proxy_certificatePath";

  static constexpr std::string_view kInitialAddress = "localhost:8080";

  // Reads an address in the form that ProxyAddress::text returns.
  static std::optional<QEVDependencies::ProxyAddress> addressOf(std::string_view text);

  // The settings for the host's catalogue.
  static std::vector<QEVSettings::PreferenceDescriptor> descriptors();

  // The store outlives the service.
  explicit ProxyService(QEVSettings::PreferencesStore& store);

  bool isManaged(Setting setting) const override;
  std::vector<std::string> keysOf(Setting setting) const override;
  bool isEnabled() const override;
  void setEnabled(bool enabled) override;
  std::optional<std::string> problem() const override;
  QEVDependencies::ProxyAddress listeningAddress() const override;
  void setListeningAddress(QEVDependencies::ProxyAddress address) override;
  std::optional<QEVDependencies::ProxyAddress> upstream() const override;
  void setUpstream(std::optional<QEVDependencies::ProxyAddress> upstream) override;
  bool interceptsTLS() const override;
  void setInterceptsTLS(bool intercepts) override;
  std::optional<std::string> certificatePath() const override;
  void setCertificatePath(std::optional<std::string> path) override;

private:
  void set(QEVSettings::PreferenceValue value, std::string_view key);
  std::optional<QEVDependencies::ProxyAddress> address(std::string_view key) const;

  QEVSettings::PreferencesStore& store_;
  QEVSettings::Subscription storeDidChange_;
};

}  // namespace zorvantine
