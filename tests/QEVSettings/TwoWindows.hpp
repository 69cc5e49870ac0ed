#pragma once

#include "HostParts.hpp"
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVModels/PortsValidator.hpp"
#include "SecondProcess.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/Bundle.hpp"
#include "headless/Window.hpp"
#include "support/TemporaryFolder.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/StoredPreference.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace QEVSettings::walk {

inline const std::string kPortsKey = "com_velloquin_qev_walk_protocols";
inline const std::string kOptionKey = "com_velloquin_qev_walk_option";
inline const std::string kColorKey = "com_velloquin_qev_walk_color";
inline const std::string kUsesColorKey = "com_velloquin_qev_walk_usesColor";
inline const std::string kNoteKey = "com_velloquin_qev_walk_note";
inline const std::string kSelectionKey(kAnalyzerSelectedIndex.name);
inline const std::string kZoneKey(QEVKonstantsKeys::kPrefTimezoneString.name);
inline const std::string kNote = "Note";
inline constexpr std::array kNames{"HTTP", "Proxy", "WebSocket"};
inline constexpr std::array kSources{"None", "TCP", "UDP", "UDP/TCP"};

// The plug-in's own control: a text that is stored as it is typed.
struct NoteField {
  viewkit::StoredPreference<std::string> note{kNoteKey, ""};
  viewkit::View body() const {
    return viewkit::TextField({}, note.binding()).accessibilityLabel(kNote);
  }
};

// A record as the last acknowledged change left it.
struct Record {
  std::string id;
  std::string name;
  std::string ports;
  std::int64_t source;

  friend bool operator==(const Record&, const Record&) = default;
};

inline void PrintTo(const Record& record, std::ostream* out) {
  *out << record.id << ' ' << record.name << ' ' << record.ports << ' ' << record.source;
}

inline std::string rawColor(std::size_t number) {
  return QEVCommonTools::rawValue(
      appkit::RGBA{.red = static_cast<double>(number) / 10, .green = 0.5, .blue = 0.25});
}

struct SettingsWindow {
  std::unique_ptr<foundation::UserDefaults> store;
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureModel;
  std::unique_ptr<headless::Window> window;
  std::string tab = "Analyzer";
  // The texts of ports fields that are not committed, or were refused, by the record's id; and
  // which of them is still being typed.
  std::map<std::string, std::string> typed;
  std::string typing;

  headless::Window* operator->() const { return window.get(); }
};

// Two windows over one store and a second process that writes to it, and what the store has to
// hold: what was acknowledged, and nothing else.
class TwoWindows : public testing::Test, protected HostParts {
protected:
  TwoWindows() {
    foundation::Bundle::setMainResourceFolder(std::filesystem::path(QEV_SOURCE_FOLDER) /
                                              "host/resources");
    auto preferences = std::make_shared<PortsPreferences>(journal_);
    preferences->config = {
        .toggles = {{.id = "1", .defaultsKey = kOptionKey, .labelKey = "An option"}},
        .color = {{.colorKey = kColorKey, .usesColorKey = kUsesColorKey}},
        .ports = {{.networkProtocolKey = kPortsKey,
                   .defaultProtocolNames = {kNames.begin(), kNames.end()},
                   .defaultPorts = factory_}},
        .extraContent = [] { return NoteField{}; }};
    plugIns_.load("Web", preferences);
    plugIns_.load("Bare");
    acknowledge(
        kOptionKey, [&] { other_.setBool(kOptionKey, true); }, true);
    acknowledge(
        kUsesColorKey, [&] { other_.setBool(kUsesColorKey, false); }, false);
    acknowledge(
        kColorKey, [&] { other_.setString(kColorKey, rawColor(0)); }, rawColor(0));
    acknowledge(
        kSelectionKey, [&] { other_.setInteger(kSelectionKey, 0); }, 0);
    acknowledge(
        kZoneKey, [&] { other_.setString(kZoneKey, "GMT"); }, "GMT");
    acknowledge(
        kNoteKey, [&] { other_.setString(kNoteKey, "a note"); }, "a note");
    records_ = factoryRecords();
    for (SettingsWindow& each : windows_) {
      each.store = foundation::UserDefaults::open(path_);
      each.captureModel =
          std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(*each.store, interfaces);
      each.window = std::make_unique<headless::Window>(
          QEVSettingsView(updater, delegate, each.captureModel, QEVSettingsView::Tabs::analyze,
                          std::nullopt),
          viewkit::Environment{.defaultStore = *each.store},
          headless::WindowOptions{.size = viewkit::Size{720, 680}});
    }
  }

  ~TwoWindows() override {
    for (SettingsWindow& each : windows_) each.window.reset();
  }

  void acknowledge(const std::string& key, const std::function<void()>& write,
                   PreferenceValue value) {
    write();
    values_.insert_or_assign(key, std::move(value));
  }

  std::vector<Record> factoryRecords() const {
    std::vector<Record> records;
    for (const auto& each : factory_) {
      records.push_back(
          {each->id().text(), each->protocolName, each->protocolPorts, each->sourceProtocol});
    }
    return records;
  }

  std::size_t random(std::size_t count) { return random_() % count; }
  bool perhaps() { return random(2) == 0; }
  Record* record(const std::string& id) {
    const auto found = std::ranges::find(records_, id, &Record::id);
    return found != records_.end() ? &*found : nullptr;
  }
  bool showsPorts(const SettingsWindow& window) const {
    return window.tab == "Analyzer" && values_.at(kSelectionKey) == PreferenceValue(0);
  }

  // Both windows hear of everything that is stored.
  void hear() {
    for (SettingsWindow& each : windows_) each.store->readChanges();
    for (SettingsWindow& each : windows_) each->settle();
  }

  // The text that is being typed is committed.
  void commit(SettingsWindow& window) {
    const std::string id = std::exchange(window.typing, "");
    const auto typed = window.typed.find(id);
    if (typed == window.typed.end()) return;
    const std::string ports = QEVModels::validatedPorts(typed->second).ports;
    Record* changed = record(id);
    if (changed && ports.empty()) return;
    if (changed) changed->ports = ports;
    window.typed.erase(typed);
  }
  void leavePorts(SettingsWindow& window) {
    commit(window);
    window.typed.clear();
  }

  void go(SettingsWindow& window, const std::string& tab) {
    window->becomeKey();
    window->selectTab(tab);
    commit(window);
    if (tab != window.tab) leavePorts(window);
    window.tab = tab;
  }
  void select(SettingsWindow& window, int index) {
    go(window, "Analyzer");
    window->click(window->find(viewkit::Role::listItem, index == 0 ? "Web" : "Bare"));
    selected(index);
  }
  // The windows hear of the selection, and show another analyzer.
  void selected(int index) {
    hear();
    if (values_.at(kSelectionKey) == PreferenceValue(index)) return;
    for (SettingsWindow& each : windows_) leavePorts(each);
    values_.insert_or_assign(kSelectionKey, index);
  }

  std::vector<headless::Element> portFields(const SettingsWindow& window) const {
    auto fields = window->findAll(viewkit::Role::textField);
    std::erase_if(fields, [](const headless::Element& each) { return each.label() == kNote; });
    return fields;
  }
  static headless::Element menu(const SettingsWindow& window, const char* label, std::size_t row) {
    auto menus = window->findAll(viewkit::Role::menuButton);
    std::erase_if(menus, [&](const headless::Element& each) { return each.label() != label; });
    return menus.at(row);
  }

  const support::TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "preferences.sqlite";
  QEVDependencies::QEVNetworkProtocolList factory_{protocol("HTTP", "80", 1),
                                                   protocol("Proxy", "3128,8080", 1)};
  SecondProcess other_{path_, factory_};
  Journal journal_;
  LoadedPlugIns plugIns_;
  std::array<SettingsWindow, 2> windows_;
  std::mt19937_64 random_{20261125};
  // What was acknowledged: the protocol list, and the value of every other key.
  std::vector<Record> records_;
  std::map<std::string, PreferenceValue> values_;
};

}  // namespace QEVSettings::walk
