// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/ActionNotice.hpp"
#include "QEVSettings/SettingsNavigation.hpp"
#include "QEVSettings/StorageNotices.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <memory>
#include <optional>

namespace QEVSettings {

// What a settings window has beside its pages.
//
//     QEVSettingsView(updater, delegate, captureModel, tab, proxyPage, {.hasFind = false})
struct SettingsWindowOptions {
  // A field that finds settings, at the trailing end of the tabs.
  bool hasFind = true;
  // Marks of the rows with changed settings, and the context menus of all rows. They need a
  // SettingsCatalogue in the environment.
  bool hasMarks = true;
};

// The content of the settings window: a tab view with a page and a help button for each subject.
//
// The host creates one each time it opens the window, and chooses the first tab. Each change is
// written at once: to the environment's preferences store, or to the model that the page shows.
//
// A bar above the tabs appears while changes cannot be saved, and once after the store was restored
// or had to begin empty. See PreferencesStore::storageProblem and PreferencesStore::opening.
//
// Where the environment has an ActionHistory, the window offers undo and redo, and with a
// SettingsReset in it the resets too: as keys, and in a context menu.
//
// The views find a SettingsNavigation in the environment. A host that stores settings of its own
// gives the window a SettingsCatalogue with them as an object of the environment.
//
// The process stops when the module's string tables are not installed. Main thread.
//
//     using Tabs = QEVSettingsView::Tabs;
//     View content = QEVSettingsView(updater, delegate, captureModel, Tabs::general,
//                                    ProxySettingsView(proxyService));
class QEVSettingsView {
public:
  // `appearance` selects the Fonts page.
  enum class Tabs : std::uint8_t { general, capture, proxy, analyze, appearance };

  // The host shares the objects with the view; none is null. `appDelegate` is called after the user
  // chose the light or dark appearance and the choice was stored. Without `proxyTab` there is no
  // proxy page. A `selectedTab` without a page shows the first page. `options` leave out what the
  // host does not want beside the pages.
  QEVSettingsView(std::shared_ptr<UpdaterViewModel> updater,
                  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
                  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureViewModel,
                  Tabs selectedTab, std::optional<viewkit::View> proxyTab,
                  SettingsWindowOptions options = {});

  viewkit::View body() const;

private:
  viewkit::View header() const;
  viewkit::View withHistory(const viewkit::View& content) const;
  viewkit::View tabs() const;
  viewkit::View findField() const;

  std::shared_ptr<UpdaterViewModel> updater_;
  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate_;
  viewkit::ObservedObject<QEVCoreComponents::QEVCaptureViewModel> captureViewModel_;
  std::optional<viewkit::View> proxyTab_;
  SettingsWindowOptions options_;
  viewkit::State<Tabs> selectedTab_;
  viewkit::StateObject<StorageNotices> storageNotices_;
  viewkit::StateObject<ActionNotice> actionNotice_;
  viewkit::StateObject<SettingsNavigation> navigation_;
};

}  // namespace QEVSettings
