// SPDX-License-Identifier: MIT
#include "HistoryWindow.hpp"

#include "QEVSettings/ProxySettingsView.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/StoredPreference.hpp"

#include <utility>

namespace QEVSettings {

namespace {

// A control of the plug-in's own: a text that is stored as it is typed.
struct NoteField {
  viewkit::StoredPreference<std::string> note{HistoryWindow::kNoteKey, ""};
  viewkit::View body() const {
    return viewkit::TextField({}, note.binding()).accessibilityLabel(HistoryWindow::kNote);
  }
};

void useForUpdater(PreferencesStore* store) {
  sparkle::UpdaterConfiguration configuration;
  configuration.store = store;
  sparkle::UpdaterConfiguration::setStandard(configuration);
}

std::shared_ptr<FixedInterfaces> interfaces() {
  auto interfaces = std::make_shared<FixedInterfaces>();
  for (const char* name : {"en0", "en1", "lo"})
    interfaces->interfaces.push_back({.name = name, .addresses = {}, .isUp = true});
  return interfaces;
}

}  // namespace

HistoryWindow::HistoryWindow(PreferencesStore& store,
                             QEVDependencies::QEVNetworkProtocolList factory,
                             ActionHistory::Limits limits)
    : recording_(store) {
  foundation::Bundle::setPreferredLanguages({"en"});
  foundation::Bundle::setMainResourceFolder(std::filesystem::path(QEV_SOURCE_FOLDER) /
                                            "host/resources");
  analyzer->config = {
      .toggles = {{.id = "1",
                   .defaultsKey = kOptionKey,
                   .defaultValue = true,
                   .labelKey = "Compute checksums"}},
      .color = {{.colorKey = kColorKey, .usesColorKey = "com_velloquin_qev_history_usesColor"}},
      .ports = {{.networkProtocolKey = kPortsKey,
                 .defaultProtocolNames = {"HTTP", "Proxy", "WebSocket"},
                 .defaultPorts = std::move(factory)}},
      .extraContent = [] { return NoteField{}; }};
  plugIns_.load("Web", analyzer);
  plugIns_.load("Bare");
  for (PreferenceDescriptor& each : zorvantine::hostSettings()) catalogue_->add(std::move(each));
  useForUpdater(&recording_);
  updater = std::make_shared<UpdaterViewModel>();
  writer = std::make_shared<SettingWriter>(
      recording_, SettingWriter::Doors{.appDelegate = delegate, .updater = updater});
  history = std::make_shared<ActionHistory>(recording_, writer, catalogue_, limits);
  reset = std::make_shared<SettingsReset>(history, catalogue_);
  window_ = std::make_unique<headless::Window>(
      QEVSettingsView(
          updater, delegate,
          std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(recording_, interfaces()),
          QEVSettingsView::Tabs::general,
          ProxySettingsView(std::make_shared<zorvantine::ProxyService>(recording_))),
      viewkit::Environment{.defaultStore = recording_,
                           .objects = viewkit::EnvironmentObjects()
                                          .with(catalogue_)
                                          .with(writer)
                                          .with(history)
                                          .with(reset)},
      headless::WindowOptions{.size = viewkit::Size{720, 680}});
  journal.clear();
}

HistoryWindow::~HistoryWindow() {
  window_.reset();
  history.reset();
  updater.reset();
  useForUpdater(nullptr);
}

void HistoryWindow::undo() { window_->press(headless::Key::z, appkit::Event::control); }

void HistoryWindow::redo() {
  window_->press(headless::Key::z, appkit::Event::control | appkit::Event::shift);
}

std::string HistoryWindow::notice() const {
  const auto alerts = window_->findAll(viewkit::Role::alert);
  return alerts.empty() ? "" : alerts.front().label();
}

QEVDependencies::QEVNetworkProtocolList HistoryWindow::factoryList() {
  return {protocol("HTTP", "80", 1), protocol("Proxy", "3128,8080", 1)};
}

}  // namespace QEVSettings
