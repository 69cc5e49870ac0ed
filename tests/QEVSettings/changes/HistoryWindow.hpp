// SPDX-License-Identifier: MIT
#pragma once

#include "HostParts.hpp"
#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/SettingsReset.hpp"
#include "TestAnalyzers.hpp"
#include "headless/Window.hpp"
#include "services/ProxyService.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace QEVSettings {

// A settings window whose actions can be undone, as a host makes one over a store. The first of two
// analyzers, Web, has an option, a colour, ports and a note, which is a control of its own.
class HistoryWindow {
public:
  // The store outlives the window.
  explicit HistoryWindow(PreferencesStore& store,
                         QEVDependencies::QEVNetworkProtocolList factory = factoryList(),
                         ActionHistory::Limits limits = ActionHistory::Limits());
  ~HistoryWindow();
  HistoryWindow(const HistoryWindow&) = delete;
  HistoryWindow& operator=(const HistoryWindow&) = delete;

  headless::Window* operator->() { return window_.get(); }
  headless::Window& operator*() { return *window_; }

  void undo();
  void redo();
  // The text of the bar above the tabs; empty when there is none.
  std::string notice() const;

  static QEVDependencies::QEVNetworkProtocolList factoryList();

  static inline const std::string kPortsKey = "com_velloquin_qev_history_protocols";
  static inline const std::string kColorKey = "com_velloquin_qev_history_color";
  static inline const std::string kOptionKey = "com_velloquin_qev_history_option";
  static inline const std::string kNoteKey = "com_velloquin_qev_history_note";
  static constexpr const char* kNote = "Note";

private:
  LoadedPlugIns plugIns_;
  RecordingPreferences recording_;

public:
  Journal journal;
  std::shared_ptr<PortsPreferences> analyzer = std::make_shared<PortsPreferences>(journal);
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
  std::shared_ptr<UpdaterViewModel> updater;
  std::shared_ptr<SettingWriter> writer;
  std::shared_ptr<ActionHistory> history;
  std::shared_ptr<SettingsReset> reset;

private:
  std::shared_ptr<SettingsCatalogue> catalogue_ = std::make_shared<SettingsCatalogue>();
  std::unique_ptr<headless::Window> window_;
};

}  // namespace QEVSettings
