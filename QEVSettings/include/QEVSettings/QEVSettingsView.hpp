#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/StorageNotices.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <memory>
#include <optional>

namespace QEVSettings {

// The content of the settings window: a tab view with a page and a help button for each subject.
//
// The host makes one each time it opens the window; the selected tab lives no longer than that. All
// that a person changes is at once in the environment's preferences store, or with the owner of the
// model concerned.
//
// While changes cannot be saved, and once after the store was restored from its copy or begun
// empty, a bar above the tabs says so; see PreferencesStore::storageProblem and
// PreferencesStore::opening. The host has nothing to do for it.
//
// Needs the module's string tables: the process stops where they are not installed. Main thread.
//
//     View content = QEVSettingsView(updater, delegate, captureModel,
//     QEVSettingsView::Tabs::general,
//                                    ProxySettingsView(proxyService));
class QEVSettingsView {
public:
  // `appearance` is the Fonts page.
  enum class Tabs : std::uint8_t { general, capture, proxy, analyze, appearance };

  // The view shares the objects with the host; none of them is null. `appDelegate` is called after
  // a person chose a light or dark appearance and the choice was stored. Without a `proxyTab` there
  // is no page for the interception proxy; a `selectedTab` whose page is not there shows the first
  // page.
  QEVSettingsView(std::shared_ptr<UpdaterViewModel> updater,
                  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
                  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureViewModel,
                  Tabs selectedTab, std::optional<viewkit::View> proxyTab);

  viewkit::View body() const;

private:
  std::shared_ptr<UpdaterViewModel> updater_;
  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate_;
  viewkit::ObservedObject<QEVCoreComponents::QEVCaptureViewModel> captureViewModel_;
  std::optional<viewkit::View> proxyTab_;
  viewkit::State<Tabs> selectedTab_;
  viewkit::StateObject<StorageNotices> storageNotices_;
};

}  // namespace QEVSettings
