// SPDX-License-Identifier: MIT
#include "catalogue/SearchedSample.hpp"

#include "analyzers/AnalyzerDescription.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"

#include <utility>

namespace zorvantine {

using QEVSettings::PreferenceDescriptor;
using QEVSettings::SearchedAnalyzer;

namespace {

class SearchedSample final : public QEVSettings::SearchedSettings {
public:
  std::vector<PreferenceDescriptor> ownSettings() const override {
    std::vector<PreferenceDescriptor> settings;
    for (const PreferenceDescriptor* each : fixed_.all()) settings.push_back(*each);
    for (PreferenceDescriptor& each : hostSettings()) settings.push_back(std::move(each));
    return settings;
  }

  std::size_t analyzerCount() const override { return analyzers_.size(); }

  SearchedAnalyzer analyzer(std::size_t number) const override {
    const AnalyzerDescription& analyzer = analyzers_.at(number);
    const bool hasSettings = analyzer.preferences != Preferences::none;
    return {.description = foundation::Bundle::mainBundle().localizedString(analyzer.description),
            .englishDescription = analyzer.description,
            .settings = hasSettings ? settingsOf(analyzer)
                                    : QEVSettings::AnalyzerSettings{.title = analyzer.title}};
  }

private:
  QEVSettings::PreferenceCatalogue fixed_ = QEVSettings::fixedCatalogue();
  std::vector<AnalyzerDescription> analyzers_ = sampleAnalyzers();
};

}  // namespace

std::shared_ptr<const QEVSettings::SearchedSettings> searchedSample() {
  return std::make_shared<const SearchedSample>();
}

}  // namespace zorvantine
