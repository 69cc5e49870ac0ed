// SPDX-License-Identifier: MIT
#include "analyzers/LoadAnalyzers.hpp"

#include "QEVModels/QEVPlugInsController.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "analyzers/AnalyzerPreferences.hpp"
#include "foundation/Bundle.hpp"

#include <memory>

namespace zorvantine {

using QEVDependencies::QEVPreferencesObject;

namespace {

// There may be a million of these, so each computes its description when asked for it.
class SyntheticPreferences final : public QEVPreferencesObject,
                                   public QEVDependencies::QEVPluginPreferencesProtocol {
public:
  explicit SyntheticPreferences(std::size_t number) : number_(number) {}

  std::optional<QEVDependencies::AnalyzerSettingsConfig> analyzerSettingsConfig() const override {
    return configOf(syntheticAnalyzer(number_));
  }

private:
  std::size_t number_;
};

std::shared_ptr<QEVPreferencesObject> preferencesOf(const AnalyzerDescription& analyzer,
                                                    QEVSettings::PreferencesStore& store) {
  switch (analyzer.preferences) {
    case Preferences::none: return nullptr;
    case Preferences::settings: return std::make_shared<AnalyzerPreferences>(analyzer, store);
    case Preferences::settingsAndPorts:
    case Preferences::settingsAndVetoes:
      return std::make_shared<AnalyzerPortsPreferences>(analyzer, store);
  }
  return nullptr;
}

void load(const AnalyzerDescription& analyzer,
          const std::shared_ptr<QEVPreferencesObject>& preferences) {
  const auto& host = foundation::Bundle::mainBundle();
  // Every id in the tables is well-formed, which a test checks.
  QEVModels::QEVPlugInsController::sharedManager().registerPlugIn(
      {.id = foundation::UUID::parse(analyzer.id).value_or(foundation::UUID::random()),
       .plugInTitle = analyzer.title,
       .plugInDescription = host.localizedString(analyzer.description),
       .plugInAuthor = host.localizedString("The Zorvantine developers"),
       .plugInVersion = analyzer.version,
       .plugInPreferencesInstance = preferences});
}

}  // namespace

void loadAnalyzers(std::optional<std::size_t> syntheticCount,
                   QEVSettings::PreferencesStore& store) {
  if (!syntheticCount) {
    for (const AnalyzerDescription& analyzer : sampleAnalyzers())
      load(analyzer, preferencesOf(analyzer, store));
    return;
  }
  for (std::size_t number = 1; number <= *syntheticCount; ++number) {
    load(syntheticAnalyzer(number), std::make_shared<SyntheticPreferences>(number));
  }
}

}  // namespace zorvantine
