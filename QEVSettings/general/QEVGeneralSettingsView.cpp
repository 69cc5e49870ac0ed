// SPDX-License-Identifier: MIT
#include "general/QEVGeneralSettingsView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "appkit/Application.hpp"
#include "foundation/TimeZones.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/SettingRow.hpp"
#include "rows/SettingsIconRow.hpp"
#include "rows/SettingsSectionHeader.hpp"
#include "updates/UpdateRow.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/GroupBox.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::Hairline;
using QEVCommonTools::managed;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;
using sparkle::SPUUpdater;

namespace {

using Setting = foundation::Published<bool> UpdaterViewModel::*;

Binding<bool> binding(const std::shared_ptr<UpdaterViewModel>& model, Setting setting) {
  return {[=] { return (*model.*setting).get(); },
          [=](bool value) { (*model.*setting).set(value); }};
}

// Sets a changed value of the model at the updater, unless the updater already has it.
std::function<void(bool)> writeBack(const std::shared_ptr<UpdaterViewModel>& model, Setting setting,
                                    bool (SPUUpdater::*getter)() const,
                                    void (SPUUpdater::*setter)(bool)) {
  return [=](bool) {
    SPUUpdater* const updater = &model->updaterController().updater();
    const bool value = *model.*setting;
    if ((updater->*getter)() != value) (updater->*setter)(value);
  };
}

// Marks the item that has the stored text or, while that is an identifier, the item of this time
// zone: items are in the order of the identifiers.
void markCurrent(std::vector<MenuItem>& items, const std::string& stored) {
  auto current = std::ranges::find(items, stored, &MenuItem::title);
  if (current == items.end()) {
    const std::vector<std::string> identifiers = foundation::knownTimeZoneNames();
    const auto identifier = std::ranges::find(identifiers, stored);
    if (identifier == identifiers.end() || identifiers.size() != items.size()) return;
    current = items.begin() + (identifier - identifiers.begin());
  }
  current->isCurrent = true;
}

View updateRow(const UpdateRow& row) { return settingRow({row.stored.key()}, row); }

}  // namespace

QEVGeneralSettingsView::QEVGeneralSettingsView(
    std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
    std::shared_ptr<UpdaterViewModel> updater)
    : appDelegate_(std::move(appDelegate)),
      selectedTimeZone_(QEVKonstantsKeys::kPrefTimezoneString.name,
                        foundation::currentTimeZoneName()),
      updaterViewModel_([updater = std::move(updater)] { return updater; }) {}

View QEVGeneralSettingsView::body() const {
  return GroupBox{
      VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
             {
                 appearanceSection(),
                 Hairline{.color = Color::separator()},
                 timeZoneSection(),
                 Hairline{.color = Color::separator()},
                 updatesSection(),
             })
          .padding(Spacing::s6)
          .frame(FlexibleFrame{.maxWidth = kUnlimited,
                               .maxHeight = kUnlimited,
                               .alignment = Alignment::topLeading()})};
}

View QEVGeneralSettingsView::appearanceSection() const {
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
      {
          SettingsSectionHeader{.titleKey = "Appearance", .systemImage = "circle.righthalf.filled"},
          settingRow({std::string(QEVKonstantsKeys::kAppearanceName.name),
                      std::string(QEVKonstantsKeys::kAppearanceUseSystem.name)},
                     managed(appearanceSwitch(),
                             appearanceName_.isLocked() || appearanceUseSystem_.isLocked())),
      });
}

View QEVGeneralSettingsView::appearanceSwitch() const {
  return HStack({.alignment = VerticalAlignment::top, .spacing = 0},
                {
                    modeButton(AppearanceMode::light, localized("Light")),
                    Spacer(),
                    modeButton(AppearanceMode::dark, localized("Dark")),
                    Spacer(),
                    modeButton(AppearanceMode::automatic, localized("Auto")),
                })
      .padding(Edges::leading, Spacing::s7)
      .padding(Edges::trailing, Spacing::s5)
      .padding(Edges::top, Spacing::s4);
}

View QEVGeneralSettingsView::modeButton(AppearanceMode mode, const std::string& label) const {
  return AppearanceModeButton{.mode = mode,
                              .label = label,
                              .isSelected = mode == currentMode(),
                              .select = [self = *this, mode] { self.selectMode(mode); }};
}

AppearanceMode QEVGeneralSettingsView::currentMode() const {
  if (appearanceUseSystem_) return AppearanceMode::automatic;
  return appearanceName_.get() == kAppearanceNameAqua ? AppearanceMode::light
                                                      : AppearanceMode::dark;
}

void QEVGeneralSettingsView::selectMode(AppearanceMode mode) const {
  switch (mode) {
    case AppearanceMode::light:
    case AppearanceMode::dark:
      appearanceUseSystem_.set(false);
      appearanceName_.set(mode == AppearanceMode::light ? kAppearanceNameAqua
                                                        : kAppearanceNameDarkAqua);
      appDelegate_->setupAppearanceFromUserDefaults();
      return;
    case AppearanceMode::automatic:
      appearanceUseSystem_.set(true);
      appkit::Application::sharedApplication().setAppearance(std::nullopt);
      return;
  }
}

View QEVGeneralSettingsView::timeZoneSection() const {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
                {
                    SettingsSectionHeader{.titleKey = "Time Zone", .systemImage = "globe"},
                    settingRow({std::string(QEVKonstantsKeys::kPrefTimezoneString.name)},
                               SettingsIconRow{.symbol = "clock",
                                               .alignment = VerticalAlignment::center,
                                               .iconSize = 15,
                                               .leadingInset = true,
                                               .content = [row = timeZoneRow()] { return row; }}),
                });
}

View QEVGeneralSettingsView::timeZoneRow() const {
  return HStack({.spacing = points(Spacing::s5)},
                {
                    Text(localized("Packet time zone")).font(Font::callout()),
                    Spacer(points(Spacing::s5)),
                    timeZoneMenu(),
                });
}

View QEVGeneralSettingsView::timeZoneMenu() const {
  const auto items = [self = *this] {
    std::vector<MenuItem> items;
    for (const std::string& name : localizedTimeZoneNames()) {
      items.push_back({.title = name,
                       .action = [self, name] { self.selectedTimeZone_.set(name); },
                       .font = Font::system(13)});
    }
    markCurrent(items, self.selectedTimeZone_);
    return items;
  };

  const View menu = PopUpMenu(selectedTimeZone_, items).help(localized("Packet time zone"));
  return managed(menu, selectedTimeZone_.isLocked())
      .frame(FlexibleFrame{.maxWidth = 280, .alignment = Alignment::trailing()});
}

View QEVGeneralSettingsView::updatesSection() const {
  const std::shared_ptr<UpdaterViewModel>& model = updaterViewModel_.get();

  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
      {
          SettingsSectionHeader{.titleKey = "Updates", .systemImage = "arrow.down.circle"},
          updateRow({.symbol = "arrow.triangle.2.circlepath",
                     .stored = {SPUUpdater::kAutomaticallyChecksKey, false},
                     .textKey = "Automatically check for updates",
                     .isOn = binding(model, &UpdaterViewModel::automaticallyChecksForUpdates),
                     .onChange = writeBack(model, &UpdaterViewModel::automaticallyChecksForUpdates,
                                           &SPUUpdater::automaticallyChecksForUpdates,
                                           &SPUUpdater::setAutomaticallyChecksForUpdates)}),
          updateRow({.symbol = "arrow.down.circle",
                     .stored = {SPUUpdater::kAutomaticallyDownloadsKey, false},
                     .textKey = "Automatically download updates",
                     .isOn = binding(model, &UpdaterViewModel::automaticallyDownloadUpdates),
                     .isEnabled = model->automaticallyChecksForUpdates,
                     .onChange = writeBack(model, &UpdaterViewModel::automaticallyDownloadUpdates,
                                           &SPUUpdater::automaticallyDownloadsUpdates,
                                           &SPUUpdater::setAutomaticallyDownloadsUpdates)}),
          updateRow({.symbol = "chart.bar.doc.horizontal",
                     .stored = {SPUUpdater::kSendsSystemProfileKey, false},
                     .textKey = "Include anonymous system profile",
                     .isOn = binding(model, &UpdaterViewModel::sendSystemProfile),
                     .onChange = writeBack(model, &UpdaterViewModel::sendSystemProfile,
                                           &SPUUpdater::sendsSystemProfile,
                                           &SPUUpdater::setSendsSystemProfile)}),
      });
}

}  // namespace QEVSettings
