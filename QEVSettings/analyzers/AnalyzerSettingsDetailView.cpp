// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerSettingsDetailView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "analyzers/options/CompactAnalyzerOptionsView.hpp"
#include "analyzers/ports/CompactPortsEditorView.hpp"
#include "analyzers/ports/PortsSectionHeader.hpp"
#include "foundation/Bundle.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/SettingsSectionHeader.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::formatted;
using QEVCommonTools::Hairline;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;
using QEVCommonTools::trimmed;
using QEVDependencies::AnalyzerSettingsConfig;
using QEVDependencies::QEVPluginPreferencesProtocol;
using QEVDependencies::QEVPlugInStructure;
using QEVDependencies::QEVPortsPreferencesProtocol;

namespace {

View optionsHeader() {
  return SettingsSectionHeader{.titleKey = "Options", .systemImage = "slider.horizontal.3"};
}

View notPortBased() {
  return Text(localized("This protocol is not port-based"))
      .font(Font::body())
      .foreground(Color::secondary())
      .selectable()
      .fixedSize(false, true);
}

View optionsWithoutPorts(const AnalyzerSettingsConfig& config) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    View(CompactAnalyzerOptionsView{.config = config})
                        .frame(FlexibleFrame{.minHeight = 140, .alignment = Alignment::top()}),
                    Hairline{.color = Color::separator()},
                    PortsSectionHeader{},
                    notPortBased(),
                });
}

View noOptions() {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    Text(localized("No configurable options"))
                        .font(Font::body())
                        .foreground(Color::secondary())
                        .fixedSize(false, true)
                        .frame(FlexibleFrame{.minHeight = 140, .alignment = Alignment::top()}),
                    Hairline{.color = Color::separator()},
                    PortsSectionHeader{},
                    notPortBased(),
                });
}

}  // namespace

View AnalyzerSettingsDetailView::body() const {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    header(),
                    Hairline{.color = Color::separator()},
                    sections(),
                })
      .padding(Spacing::s6)
      .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()});
}

View AnalyzerSettingsDetailView::header() const {
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s2)},
      {
          Text(model->pluginStruct.get().plugInTitle).font(Font::title3().semibold()).selectable(),
          Text(subtitle())
              .font(Font::callout())
              .foreground(Color::secondary())
              .selectable()
              .fixedSize(false, true),
      });
}

View AnalyzerSettingsDetailView::sections() const {
  std::optional<AnalyzerSettingsConfig> config;
  const auto failure = failureOf([&] { config = this->config(); });
  if (failure) {
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
                  {
                      optionsHeader(),
                      analyzerErrorText(*failure),
                  });
  }
  if (!config) {
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
                  {
                      optionsHeader(),
                      noOptions(),
                  });
  }
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
                {
                    optionsHeader(),
                    config->ports ? CompactPortsEditorView{.config = *config,
                                                           .ports = *config->ports,
                                                           .controller = portsController()}
                                  : optionsWithoutPorts(*config),
                });
}

std::string AnalyzerSettingsDetailView::subtitle() const {
  const QEVPlugInStructure& plugin = model->pluginStruct;
  return formatted(foundation::Bundle::mainBundle().localizedString("%@ · %@ · %@"),
                   {trimmed(plugin.plugInDescription), plugin.plugInAuthor, plugin.plugInVersion});
}

std::optional<AnalyzerSettingsConfig> AnalyzerSettingsDetailView::config() const {
  const auto preferences = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(
      model->pluginStruct.get().plugInPreferencesInstance.lock());
  return preferences ? preferences->analyzerSettingsConfig() : std::nullopt;
}

std::shared_ptr<QEVPortsPreferencesProtocol> AnalyzerSettingsDetailView::portsController() const {
  const auto preferences = model->pluginStruct.get().plugInPreferencesInstance.lock();
  if (!std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(preferences)) return nullptr;
  return std::dynamic_pointer_cast<QEVPortsPreferencesProtocol>(preferences);
}

}  // namespace QEVSettings
