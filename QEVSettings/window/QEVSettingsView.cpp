// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVSettingsView.hpp"

#include "QEVCommonTools/QEVHelpAnchor.hpp"
#include "QEVCommonTools/QEVHelpButton.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "analyzers/QEVAnalyzerSettingsView.hpp"
#include "capture/QEVCaptureSettingsView.hpp"
#include "fonts/QEVFontSettingsView.hpp"
#include "general/QEVGeneralSettingsView.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/TabView.hpp"
#include "window/HistoryCommands.hpp"
#include "window/StorageNotice.hpp"

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

// As descriptors name the tabs.
std::string_view nameOf(QEVSettingsView::Tabs tab) {
  using Tabs = QEVSettingsView::Tabs;
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

}  // namespace

QEVSettingsView::QEVSettingsView(
    std::shared_ptr<UpdaterViewModel> updater,
    std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
    std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureViewModel, Tabs selectedTab,
    std::optional<View> proxyTab)
    : updater_(std::move(updater)),
      appDelegate_(std::move(appDelegate)),
      captureViewModel_(std::move(captureViewModel)),
      proxyTab_(std::move(proxyTab)),
      selectedTab_(selectedTab),
      storageNotices_(
          [] { return std::make_shared<StorageNotices>(Environment::current().defaultStore); }),
      actionNotice_(noticeOfHistory) {}

View QEVSettingsView::body() const {
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

  return withHistory(TabView(selectedTab_.binding(), std::move(tabs), header())
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
  return HistoryCommands{.content = content, .history = history, .reset = reset, .show = {}};
}

}  // namespace QEVSettings
