// SPDX-License-Identifier: MIT
#pragma once

#include "HostParts.hpp"
#include "PageControls.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "SecondProcess.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"
#include "support/TemporaryFolder.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace QEVSettings {

// A protocol record as the last acknowledged change left it.
struct Record {
  std::string id;
  std::string name;
  std::string ports;
  std::int64_t source;

  friend bool operator==(const Record&, const Record&) = default;
};

void PrintTo(const Record& record, std::ostream* out);

struct SettingsWindow {
  std::unique_ptr<foundation::UserDefaults> store;
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureModel;
  std::unique_ptr<headless::Window> window;
  std::string tab;
  // Texts that are not committed or were refused: by the record's id for ports, else by the label
  // of the field. `typing` is the one of them that has the keyboard.
  std::map<std::string, std::string> typed;
  std::string typing;

  headless::Window* operator->() const { return window.get(); }
};

// Two settings windows over one store and a second process that writes to it. The first of two
// analyzers, Web, has an option, a colour, ports and a note, which is a control of its own.
//
// What the store has to hold is noted with each action: what was acknowledged, and nothing else.
// `check` compares both stores and all that the windows show with it.
class TwoWindows : protected HostParts {
public:
  TwoWindows();
  ~TwoWindows();

  // The notes.
  StoredValues values;  // of every key but the list of records
  std::vector<Record> records;
  Record* record(const std::string& id);
  std::vector<Record> factoryRecords() const;
  bool showsPorts(const SettingsWindow& window) const;
  bool isOn(const SwitchOnPage& toggle) const { return toggle.isOn(values); }
  // Notes what a text field that has the keyboard stores when it is left.
  void commit(SettingsWindow& window);

  // In the second process.
  void storeElsewhere(const std::string& key, const PreferenceValue& value);
  // Both windows hear of everything that is stored.
  void hear();

  // What the user does in a window.
  void reopen(SettingsWindow& window);
  void go(SettingsWindow& window, const std::string& tab);
  void goTo(SettingsWindow& window, const SwitchOnPage& toggle);
  void select(SettingsWindow& window, int index);
  // The selection is another: an editor of ports goes.
  void selected(int index);
  headless::Element portField(const SettingsWindow& window, std::size_t row) const;
  static headless::Element rowMenu(const SettingsWindow& window, const char* label,
                                   std::size_t row);

  void check();

  static inline const std::string kPortsKey = "com_velloquin_qev_walk_protocols";
  static inline const std::string kColorKey = "com_velloquin_qev_walk_color";
  static inline const std::string kNoteKey = "com_velloquin_qev_walk_note";
  static inline const std::string kSelectionKey{kAnalyzerSelectedIndex.name};
  static inline const std::string kInterfaceKey = "com_velloquin_zorvantine_capture_interface";
  static inline const std::string kZoneKey{QEVKonstantsKeys::kPrefTimezoneString.name};
  static constexpr const char* kNote = "Note";
  static constexpr std::array kNames{"HTTP", "Proxy", "WebSocket"};
  static constexpr std::array kSources{"None", "TCP", "UDP", "UDP/TCP"};
  static constexpr std::array kInterfaces{"en0", "en1", "lo"};

  // Of all pages.
  const std::vector<SwitchOnPage> switches;

private:
  void noteInitialValues();
  void open(SettingsWindow& window);
  void leavePorts(SettingsWindow& window);
  void checkStore(const SettingsWindow& window) const;
  void checkPorts(SettingsWindow& window);
  void checkPage(const SettingsWindow& window) const;
  void checkCapture(const SettingsWindow& window) const;
  void checkGeneral(const SettingsWindow& window) const;

  const support::TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "preferences.sqlite";
  Journal journal_;
  LoadedPlugIns plugIns_;

public:
  QEVDependencies::QEVNetworkProtocolList factory{protocol("HTTP", "80", 1),
                                                  protocol("Proxy", "3128,8080", 1)};
  SecondProcess other{path_, factory};
  std::array<SettingsWindow, 2> windows;
};

// What a window shows in its controls and messages.
std::vector<std::string> shownTexts(const SettingsWindow& window);

std::string rawColor(std::size_t number);

}  // namespace QEVSettings
