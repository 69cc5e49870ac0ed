// SPDX-License-Identifier: MIT
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/SettingsIndex.hpp"
#include "analyzers/AnalyzerError.hpp"

#include <utility>

namespace QEVSettings {

using QEVDependencies::QEVPluginPreferencesProtocol;
using QEVModels::QEVPlugInsController;

namespace {

class RegisteredSettings final : public SearchedSettings {
public:
  explicit RegisteredSettings(std::shared_ptr<SettingsCatalogue> catalogue)
      : catalogue_(std::move(catalogue)) {}

  std::vector<PreferenceDescriptor> ownSettings() const override { return catalogue_->own(); }
  std::size_t analyzerCount() const override { return analyzers_->size(); }
  std::uint64_t revision() const override {
    return QEVPlugInsController::sharedManager().revision();
  }

  SearchedAnalyzer analyzer(std::size_t number) const override {
    const auto& plugIn = analyzers_->at(number);
    SearchedAnalyzer analyzer{.description = plugIn.plugInDescription,
                              .settings = {.title = plugIn.plugInTitle}};
    const auto preferences = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(
        plugIn.plugInPreferencesInstance.lock());
    // The analyzer's page shows why an analyzer cannot describe itself.
    failureOf([&] {
      auto config = preferences ? preferences->analyzerSettingsConfig() : std::nullopt;
      if (!config) return;
      analyzer.settings.toggles = std::move(config->toggles);
      analyzer.settings.color = std::move(config->color);
      analyzer.settings.ports = std::move(config->ports);
    });
    return analyzer;
  }

private:
  std::shared_ptr<SettingsCatalogue> catalogue_;
  // Those that were registered when this was made.
  std::shared_ptr<const QEVPlugInsController::PlugIns> analyzers_ =
      QEVPlugInsController::sharedManager().snapshot();
};

}  // namespace

std::shared_ptr<const SearchedSettings> registeredSettings(
    std::shared_ptr<SettingsCatalogue> catalogue) {
  return std::make_shared<const RegisteredSettings>(std::move(catalogue));
}

}  // namespace QEVSettings
