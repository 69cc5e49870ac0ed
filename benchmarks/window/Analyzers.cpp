// SPDX-License-Identifier: MIT
#include "Analyzers.hpp"

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVDependencies/QEVPreferencesObject.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "QEVModels/QEVPlugInsController.hpp"

#include <array>
#include <memory>
#include <optional>
#include <string>

using namespace QEVDependencies;

namespace {

struct Option {
  const char* name;
  const char* label;
};
constexpr std::array<Option, 5> kOptions{
    {{"checksums", "Compute checksums"},
     {"resolve_names", "Enable IP to DNS name resolution (may slow down)"},
     {"resolve_vendors", "Enable MAC to vendor ID resolution"},
     {"private_credentials", "Keep usernames and passwords private"},
     {"http2", "Enable HTTP/2 Detection"}}};
constexpr std::array<const char*, 6> kProtocols{"HTTP", "HTTPS", "DNS", "SMTP", "IMAP", "SSH"};
constexpr int kFirstPort = 80;

// There may be ten thousand of these, so each computes its settings when asked for them.
class Preferences final : public QEVPreferencesObject, public QEVPluginPreferencesProtocol {
public:
  explicit Preferences(std::size_t number) : number_(number) {}

  std::optional<AnalyzerSettingsConfig> analyzerSettingsConfig() const override {
    const std::string key = "com_velloquin_qev_synthetic" + std::to_string(number_) + '_';
    AnalyzerSettingsConfig config;
    for (const Option& option : kOptions) {
      config.toggles.push_back(
          {.id = option.name, .defaultsKey = key + option.name, .labelKey = option.label});
    }
    config.ports = AnalyzerPortsSpec{
        .networkProtocolKey = key + "protocols", .defaultProtocolNames = {}, .defaultPorts = {}};
    int port = kFirstPort;
    for (const char* name : kProtocols) {
      config.ports->defaultProtocolNames.emplace_back(name);
      config.ports->defaultPorts.push_back(std::make_shared<QEVNetworkProtocol>(
          foundation::UUID::random(), name, std::to_string(port++), kQEVSourceProtocols::tcp,
          std::nullopt, std::nullopt, std::nullopt));
    }
    return config;
  }

private:
  std::size_t number_;
};

}  // namespace

void registerAnalyzers(std::size_t count) {
  auto& controller = QEVModels::QEVPlugInsController::sharedManager();
  for (std::size_t number = 1; number <= count; ++number) {
    controller.registerPlugIn(
        {.id = foundation::UUID::random(),
         .plugInTitle = "Analyzer " + std::to_string(number),
         .plugInDescription = "Made up to see how a long list of analyzers behaves.",
         .plugInAuthor = "Nobody",
         .plugInVersion = "1.0",
         .plugInPreferencesInstance = std::make_shared<Preferences>(number)});
  }
}
