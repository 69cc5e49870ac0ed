// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVDependencies/QEVPreferencesObject.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/UUID.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// What happened, in the order in which it did.
using Journal = std::vector<std::string>;

class AnalyzerPreferences : public QEVDependencies::QEVPreferencesObject,
                            public QEVDependencies::QEVPluginPreferencesProtocol {
public:
  std::optional<QEVDependencies::AnalyzerSettingsConfig> analyzerSettingsConfig() const override {
    if (refuseToDescribe) refuseToDescribe();
    return config;
  }
  std::optional<QEVDependencies::AnalyzerSettingsConfig> config;
  // Called for each description; may throw.
  std::function<void()> refuseToDescribe;
};

// Writes its calls down: "replace HTTP 80 1 by HTTP 81 1, ports".
class PortsPreferences final : public AnalyzerPreferences,
                               public QEVDependencies::QEVPortsPreferencesProtocol {
public:
  explicit PortsPreferences(Journal& journal) : journal_(journal) {}

  void replaceProtoocol(const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& old,
                        const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& current,
                        QEVDependencies::QEVNetworkProtocolProperty changed) override;
  void setDefaultSettings(bool reset) override;

  // Called for each replacement; may throw.
  std::function<void()> refuse;
  // The same for each return to the defaults.
  std::function<void()> refuseDefaults;

private:
  Journal& journal_;
};

// While it lives, a journal notes each write of a list of ports ("store") and each notification of
// one ("notify 9", "notify 3").
class PortsWatch {
public:
  PortsWatch(Journal& journal, PreferencesStore& store, std::string_view key);

private:
  std::array<Subscription, 3> subscriptions_;
};

// Plug-ins of a test's own, loaded until it ends.
class LoadedPlugIns {
public:
  LoadedPlugIns() = default;
  LoadedPlugIns(const LoadedPlugIns&) = delete;
  LoadedPlugIns& operator=(const LoadedPlugIns&) = delete;
  ~LoadedPlugIns();

  // Listed after those before it.
  void load(const std::string& title,
            const std::shared_ptr<QEVDependencies::QEVPreferencesObject>& preferences = nullptr);

private:
  std::vector<foundation::UUID> loaded_;
};

std::shared_ptr<QEVDependencies::QEVNetworkProtocol> protocol(const std::string& name,
                                                              const std::string& ports,
                                                              std::int64_t source);

}  // namespace QEVSettings
