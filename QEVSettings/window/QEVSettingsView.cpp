// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVSettingsView.hpp"

#include "QEVCommonTools/QEVHelpAnchor.hpp"
#include "QEVCommonTools/QEVHelpButton.hpp"
#include "QEVCommonTools/SettingRow.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "analyzers/QEVAnalyzerSettingsView.hpp"
#include "capture/QEVCaptureSettingsView.hpp"
#include "find/FindField.hpp"
#include "fonts/QEVFontSettingsView.hpp"
#include "general/QEVGeneralSettingsView.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/MarkedRow.hpp"
#include "rows/RowMarks.hpp"
#include "rows/SettingRow.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/EnvironmentObject.hpp"
#include "viewkit/KeyPress.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/TabView.hpp"
#include "window/HistoryCommands.hpp"
#include "window/StorageNotice.hpp"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::QEVHelpAnchor;
using QEVCommonTools::QEVHelpButton;
using QEVCommonTools::Spacing;

namespace {

View page(const View& content, double height, QEVHelpAnchor anchor) {
  return VStack({.spacing = 0},
                {
                    scrollingWhereTooHigh(content).frame(
                        FixedFrame{.height = height, .alignment = Alignment::top()}),
                    HStack({.spacing = 0},
                           {
                               Spacer(0),
                               View(QEVHelpButton{.anchor = anchor})
                                   .frame(FixedFrame{.width = 20, .height = 20}),
                           })
                        .padding(Edges::top, Spacing::s6),
                })
      .padding(Edges::bottom, Spacing::s5);
}

using Tabs = QEVSettingsView::Tabs;

constexpr std::array kTabs{Tabs::general, Tabs::capture, Tabs::proxy, Tabs::analyze,
                           Tabs::appearance};

// As descriptors name the tabs.
std::string_view nameOf(Tabs tab) {
  switch (tab) {
    case Tabs::general: break;
    case Tabs::capture: return "capture";
    case Tabs::proxy: return "proxy";
    case Tabs::analyze: return "analyze";
    case Tabs::appearance: return "appearance";
  }
  return "general";
}

std::shared_ptr<ActionNotice> noticeOfHistory() {
  const auto history = Environment::current().object<ActionHistory>();
  return history ? history->notice() : std::make_shared<ActionNotice>();
}

// Nothing for a tab that the window does not have.
std::optional<Tabs> tabNamed(std::string_view name, bool hasProxyTab) {
  const auto* const named = std::ranges::find(kTabs, name, nameOf);
  if (named == kTabs.end() || (*named == Tabs::proxy && !hasProxyTab)) return std::nullopt;
  return *named;
}

// The host's catalogue, or one of the settings that every window has.
std::shared_ptr<SettingsCatalogue> catalogueOfWindow() {
  if (auto catalogue = Environment::current().object<SettingsCatalogue>()) return catalogue;
  auto catalogue = std::make_shared<SettingsCatalogue>();
  for (PreferenceDescriptor& each : QEVCoreComponents::QEVCaptureViewModel::descriptors())
    catalogue->add(std::move(each));
  return catalogue;
}

// What the rows of the pages that siblings make look like here.
std::shared_ptr<QEVCommonTools::SettingRowStyle> rowStyle() {
  static const auto style = std::make_shared<QEVCommonTools::SettingRowStyle>(
      QEVCommonTools::SettingRowStyle{.decorate = settingRow, .decorateLabel = rowLabel});
  return style;
}

std::shared_ptr<RowMarks> noMarks() {
  static const auto marks = std::make_shared<RowMarks>(RowMarks{.areShown = false});
  return marks;
}

}  // namespace

QEVSettingsView::QEVSettingsView(
    std::shared_ptr<UpdaterViewModel> updater,
    std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
    std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureViewModel, Tabs selectedTab,
    std::optional<View> proxyTab, SettingsWindowOptions options)
    : updater_(std::move(updater)),
      appDelegate_(std::move(appDelegate)),
      captureViewModel_(std::move(captureViewModel)),
      proxyTab_(std::move(proxyTab)),
      options_(options),
      selectedTab_(selectedTab),
      storageNotices_(
          [] { return std::make_shared<StorageNotices>(Environment::current().defaultStore); }),
      actionNotice_(noticeOfHistory),
      navigation_([] {
        return std::make_shared<SettingsNavigation>(catalogueOfWindow(),
                                                    Environment::current().defaultStore);
      }) {}

View QEVSettingsView::body() const {
  const std::shared_ptr<SettingsNavigation> navigation = navigation_.get();
  const View content =
      ScrollViewReader([navigation, content = tabs(), tab = selectedTab_.binding(),
                        hasProxyTab = proxyTab_.has_value(),
                        reducedMotion = Environment::current().reducedMotion](auto views) {
        navigation->setWindow({.views = views,
                               .selectTab =
                                   [tab, hasProxyTab](std::string_view name) {
                                     const auto named = tabNamed(name, hasProxyTab);
                                     if (named) tab.set(*named);
                                     return named.has_value();
                                   },
                               .reducedMotion = reducedMotion});
        return content;
      });
  const auto hearKey = [navigation](const appkit::Event&) {
    navigation->keyWasPressed();
    return false;
  };
  const auto hearTab = [navigation](Tabs tab) { navigation->tabWasSelected(nameOf(tab)); };
  const View heard =
      onKeyPress(content, KeyScope::window, hearKey).onChange<Tabs>(selectedTab_.get(), hearTab);
  const View window = environmentObject(environmentObject(heard, navigation), rowStyle());
  return options_.hasMarks ? window : environmentObject(window, noMarks());
}

View QEVSettingsView::findField() const {
  if (!options_.hasFind) return {};
  return FindField(navigation_.get(), [hasProxyTab = proxyTab_.has_value()](std::string_view name) {
    return tabNamed(name, hasProxyTab).has_value();
  });
}

View QEVSettingsView::tabs() const {
  std::vector<Tab<Tabs>> tabs;
  tabs.push_back({.tag = Tabs::general,
                  .title = localized("General"),
                  .symbol = "tortoise",
                  .page = page(QEVGeneralSettingsView(appDelegate_, updater_), 418,
                               QEVHelpAnchor::settingsGeneral)});
  tabs.push_back({.tag = Tabs::capture,
                  .title = localized("Capture"),
                  .symbol = "recordingtape",
                  .page = page(QEVCaptureSettingsView{.captureModel = captureViewModel_.get()}, 553,
                               QEVHelpAnchor::settingsCapture)});
  if (proxyTab_) {
    tabs.push_back({.tag = Tabs::proxy,
                    .title = localized("MITM Proxy"),
                    .symbol = "network.badge.shield.half.filled",
                    .page = page(*proxyTab_, 190, QEVHelpAnchor::proxy)});
  }
  tabs.push_back({.tag = Tabs::analyze,
                  .title = localized("Analyzer"),
                  .symbol = "puzzlepiece.extension",
                  .page = page(QEVAnalyzerSettingsView(), 523, QEVHelpAnchor::settingsAnalyzers)});
  tabs.push_back({.tag = Tabs::appearance,
                  .title = localized("Fonts"),
                  .symbol = "character.magnify",
                  .page = page(QEVFontSettingsView(), 348, QEVHelpAnchor::settingsFonts)});

  return withHistory(TabView(selectedTab_.binding(), std::move(tabs), header(), findField())
                         .padding(Spacing::s7)
                         .background(Color::windowBackground())
                         .frame(FlexibleFrame{.minWidth = 720})
                         .opacityTransition());
}

View QEVSettingsView::header() const {
  const std::shared_ptr<StorageNotices>& storage = storageNotices_.get();
  const std::shared_ptr<ActionNotice>& action = actionNotice_.get();
  if (action->isEmpty()) return storage->isEmpty() ? View() : StorageNotice{.notices = storage};
  return VStack({.spacing = points(Spacing::s5)},
                {
                    storage->isEmpty() ? View() : StorageNotice{.notices = storage},
                    ActionNoticeBar{.notice = action},
                });
}

View QEVSettingsView::withHistory(const View& content) const {
  const auto history = Environment::current().object<ActionHistory>();
  if (!history) return content;
  const auto reset = Environment::current().object<SettingsReset>();
  if (reset) reset->setShownTab(nameOf(selectedTab_));
  return HistoryCommands{
      .content = content,
      .history = history,
      .reset = reset,
      .show = [navigation = navigation_.get()](std::string_view key) { navigation->reveal(key); }};
}

}  // namespace QEVSettings
