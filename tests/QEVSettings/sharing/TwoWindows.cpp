// SPDX-License-Identifier: MIT
#include "TwoWindows.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVModels/PortsValidator.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "foundation/Bundle.hpp"
#include "services/ProxyService.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/StoredPreference.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace QEVSettings {

using viewkit::Role;

namespace {

constexpr const char* kOptionKey = "com_velloquin_qev_walk_option";
constexpr const char* kUsesColorKey = "com_velloquin_qev_walk_usesColor";

// The plug-in's own control: a text that is stored as it is typed.
struct NoteField {
  viewkit::StoredPreference<std::string> note{TwoWindows::kNoteKey, ""};
  viewkit::View body() const {
    return viewkit::TextField({}, note.binding()).accessibilityLabel(TwoWindows::kNote);
  }
};

std::vector<SwitchOnPage> allSwitches() {
  std::vector<SwitchOnPage> all = switchesOfCaptureAndProxy();
  all.push_back({"Analyzer", "An option", kOptionKey, true});
  all.push_back({"Analyzer", "Packet coloring", kUsesColorKey, false});
  return all;
}

}  // namespace

void PrintTo(const Record& record, std::ostream* out) {
  *out << record.id << ' ' << record.name << ' ' << record.ports << ' ' << record.source;
}

std::string rawColor(std::size_t number) {
  return QEVCommonTools::rawValue(
      appkit::RGBA{.red = static_cast<double>(number) / 10, .green = 0.5, .blue = 0.25});
}

TwoWindows::TwoWindows() : switches(allSwitches()) {
  foundation::Bundle::setMainResourceFolder(std::filesystem::path(QEV_SOURCE_FOLDER) /
                                            "host/resources");
  for (const char* name : kInterfaces) {
    interfaces->interfaces.push_back({.name = name, .addresses = {}, .isUp = true});
  }
  auto preferences = std::make_shared<PortsPreferences>(journal_);
  preferences->config = {.toggles = {{.id = "1",
                                      .defaultsKey = kOptionKey,
                                      .defaultValue = true,
                                      .labelKey = "An option"}},
                         .color = {{.colorKey = kColorKey, .usesColorKey = kUsesColorKey}},
                         .ports = {{.networkProtocolKey = kPortsKey,
                                    .defaultProtocolNames = {kNames.begin(), kNames.end()},
                                    .defaultPorts = factory}},
                         .extraContent = [] { return NoteField{}; }};
  plugIns_.load("Web", preferences);
  plugIns_.load("Bare");
  noteInitialValues();
  for (SettingsWindow& each : windows) {
    each.store = foundation::UserDefaults::open(path_);
    each.captureModel =
        std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(*each.store, interfaces);
    open(each);
  }
}

TwoWindows::~TwoWindows() {
  for (SettingsWindow& each : windows) each.window.reset();
}

void TwoWindows::noteInitialValues() {
  storeElsewhere(kSelectionKey, std::int64_t{0});
  storeElsewhere(kColorKey, rawColor(0));
  storeElsewhere(kZoneKey, "GMT");
  storeElsewhere(kNoteKey, "a note");
  records = factoryRecords();
}

void TwoWindows::open(SettingsWindow& window) {
  const auto proxy = std::make_shared<zorvantine::ProxyService>(*window.store);
  window.tab = "Analyzer";
  window.window = std::make_unique<headless::Window>(
      QEVSettingsView(updater, delegate, window.captureModel, QEVSettingsView::Tabs::analyze,
                      ProxySettingsView(proxy)),
      viewkit::Environment{.defaultStore = *window.store},
      headless::WindowOptions{.size = viewkit::Size{720, 680}});
}

void TwoWindows::reopen(SettingsWindow& window) {
  window.window.reset();
  commit(window);
  window.typed.clear();
  open(window);
}

std::vector<Record> TwoWindows::factoryRecords() const {
  std::vector<Record> all;
  for (const auto& each : factory) {
    all.push_back(
        {each->id().text(), each->protocolName, each->protocolPorts, each->sourceProtocol});
  }
  return all;
}

Record* TwoWindows::record(const std::string& id) {
  const auto found = std::ranges::find(records, id, &Record::id);
  return found != records.end() ? &*found : nullptr;
}

bool TwoWindows::showsPorts(const SettingsWindow& window) const {
  return window.tab == "Analyzer" && values.at(kSelectionKey) == PreferenceValue(0);
}

void TwoWindows::storeElsewhere(const std::string& key, const PreferenceValue& value) {
  other.set(key, value);
  values.insert_or_assign(key, value);
}

void TwoWindows::hear() {
  // What one window hears may make it commit a text, which the other hears in the second round.
  for (int round = 0; round < 2; ++round) {
    for (SettingsWindow& each : windows) each.store->readChanges();
    for (SettingsWindow& each : windows) each->settle();
  }
  // A field that is disabled loses the keyboard.
  for (SettingsWindow& each : windows) {
    const auto& fields = fieldsOfCaptureAndProxy();
    const auto field = std::ranges::find(fields, each.typing, &FieldOnPage::label);
    if (field != fields.end() && !field->isEnabled(values)) commit(each);
  }
}

void TwoWindows::commit(SettingsWindow& window) {
  const std::string what = std::exchange(window.typing, "");
  const auto typed = window.typed.find(what);
  if (typed == window.typed.end()) return;
  const auto& fields = fieldsOfCaptureAndProxy();
  const auto field = std::ranges::find(fields, what, &FieldOnPage::label);
  if (field != fields.end()) {
    const auto text = std::ranges::find(field->texts, typed->second, &FieldOnPage::Text::typed);
    const bool isDropped = field->dropsTextWhenDisabled && !field->isEnabled(values);
    if (!text->stored && !isDropped) return;
    if (!isDropped) field->store(values, *text->stored);
  } else {
    const std::string ports = QEVModels::validatedPorts(typed->second).ports;
    Record* changed = record(what);
    if (changed && ports.empty()) return;
    if (changed) changed->ports = ports;
  }
  window.typed.erase(typed);
}

// The editor shows stored ports when it comes back.
void TwoWindows::leavePorts(SettingsWindow& window) {
  commit(window);
  const auto& fields = fieldsOfCaptureAndProxy();
  std::erase_if(window.typed, [&](const auto& typed) {
    return std::ranges::find(fields, typed.first, &FieldOnPage::label) == fields.end();
  });
}

void TwoWindows::go(SettingsWindow& window, const std::string& tab) {
  window->becomeKey();
  window->selectTab(tab);
  commit(window);
  if (tab != window.tab) leavePorts(window);
  window.tab = tab;
}

void TwoWindows::goTo(SettingsWindow& window, const SwitchOnPage& toggle) {
  if (toggle.tab == std::string("Analyzer")) {
    if (!showsPorts(window)) select(window, 0);
  } else {
    go(window, toggle.tab);
  }
}

void TwoWindows::select(SettingsWindow& window, int index) {
  go(window, "Analyzer");
  window->click(window->find(Role::listItem, index == 0 ? "Web" : "Bare"));
  selected(index);
}

void TwoWindows::selected(int index) {
  hear();
  if (values.at(kSelectionKey) == PreferenceValue(index)) return;
  for (SettingsWindow& each : windows) {
    if (showsPorts(each)) leavePorts(each);
  }
  values.insert_or_assign(kSelectionKey, index);
}

headless::Element TwoWindows::portField(const SettingsWindow& window, std::size_t row) const {
  auto fields = window->findAll(Role::textField);
  std::erase_if(fields, [](const headless::Element& each) { return each.label() == kNote; });
  EXPECT_EQ(fields.size(), records.size());
  return fields.at(row);
}

headless::Element TwoWindows::rowMenu(const SettingsWindow& window, const char* label,
                                      std::size_t row) {
  auto menus = window->findAll(Role::menuButton);
  std::erase_if(menus, [&](const headless::Element& each) { return each.label() != label; });
  return menus.at(row);
}

void TwoWindows::check() {
  hear();
  for (SettingsWindow& each : windows) {
    checkStore(each);
    if (showsPorts(each)) checkPorts(each);
    checkPage(each);
  }
}

void TwoWindows::checkStore(const SettingsWindow& window) const {
  std::vector<Record> stored;
  for (const auto& each : QEVModels::AnalyzerPortsStore(kPortsKey, *window.store).decode(factory)) {
    stored.push_back(
        {each->id().text(), each->protocolName, each->protocolPorts, each->sourceProtocol});
  }
  ASSERT_EQ(stored, records);
  auto dictionary = window.store->dictionaryRepresentation();
  dictionary.erase(kPortsKey);
  ASSERT_EQ(dictionary, PreferenceDictionary(values.begin(), values.end()));
}

void TwoWindows::checkPorts(SettingsWindow& window) {
  // A text that is stored, or whose row is gone, is not being typed any more.
  std::erase_if(window.typed, [&](const auto& typed) {
    const Record* of = record(typed.first);
    return of ? of->ports == typed.second : foundation::UUID::parse(typed.first).has_value();
  });
  for (std::size_t row = 0; row < records.size(); ++row) {
    const auto typed = window.typed.find(records[row].id);
    ASSERT_EQ(portField(window, row).value(),
              typed != window.typed.end() ? typed->second : records[row].ports);
    ASSERT_EQ(rowMenu(window, "Name", row).value(), records[row].name);
    ASSERT_EQ(rowMenu(window, "Source", row).value(),
              kSources.at(static_cast<std::size_t>(records[row].source)));
  }
}

void TwoWindows::checkPage(const SettingsWindow& window) const {
  for (const SwitchOnPage& each : switches) {
    if (each.tab != window.tab || (each.tab == std::string("Analyzer") && !showsPorts(window)))
      continue;
    ASSERT_EQ(window->find(Role::toggle, each.label).value(), isOn(each) ? "on" : "off")
        << each.label;
  }
  for (const FieldOnPage& each : fieldsOfCaptureAndProxy()) {
    if (each.tab != window.tab) continue;
    const auto field = window->find(Role::textField, each.label);
    const auto typed = window.typed.find(each.label);
    ASSERT_EQ(field.value(), typed != window.typed.end() ? typed->second : each.shown(values))
        << each.label;
    ASSERT_EQ(field.isEnabled(), each.isEnabled(values)) << each.label;
  }
  if (window.tab == "Capture") checkCapture(window);
  if (window.tab == "General") checkGeneral(window);
  if (window.tab == "Fonts") {
    const QEVCommonTools::FontPreferences fonts(*window.store);
    for (const FontPickerOnPage& each : fontPickers()) {
      ASSERT_EQ(std::get<viewkit::FontPickerControl>(
                    *window->find(Role::fontPicker, each.label).content().control())
                    .font,
                (fonts.*each.get)());
    }
  }
  if (showsPorts(window)) {
    ASSERT_EQ(window->find(Role::textField, kNote).value(), *values.at(kNoteKey).asString());
    ASSERT_EQ(
        std::get<viewkit::ColorWellControl>(*window->find(Role::colorWell).content().control())
            .color,
        QEVCommonTools::colorFromRawValue(*values.at(kColorKey).asString()));
  }
}

void TwoWindows::checkCapture(const SettingsWindow& window) const {
  const auto chosen = values.find(kInterfaceKey);
  const std::string name = chosen != values.end() ? *chosen->second.asString() : kInterfaces[0];
  for (const auto& row : window->findAll(Role::listItem)) {
    ASSERT_EQ(row.isSelected(), row.label().starts_with(name)) << row.label();
  }
}

void TwoWindows::checkGeneral(const SettingsWindow& window) const {
  ASSERT_EQ(window->find(Role::menuButton, "Packet time zone").value(),
            *values.at(kZoneKey).asString());
  const auto usesSystem = values.find(QEVKonstantsKeys::kAppearanceUseSystem.name.data());
  const auto name = values.find(QEVKonstantsKeys::kAppearanceName.name.data());
  const bool isAuto = usesSystem != values.end() && *usesSystem->second.asBoolean();
  const bool isLight = name != values.end() && *name->second.asString() == kAppearanceNameAqua;
  ASSERT_EQ(window->find(Role::button, "Auto").isSelected(), isAuto);
  ASSERT_EQ(window->find(Role::button, "Light").isSelected(), !isAuto && isLight);
  ASSERT_EQ(window->find(Role::button, "Dark").isSelected(), !isAuto && !isLight);
}

std::vector<std::string> shownTexts(const SettingsWindow& window) {
  std::vector<std::string> texts;
  for (const Role role : {Role::toggle, Role::colorWell, Role::menuButton, Role::textField,
                          Role::fontPicker, Role::listItem, Role::alert, Role::button}) {
    for (const auto& each : window->findAll(role)) {
      texts.push_back(each.label() + ": " + each.value() +
                      (each.isSelected() == true ? ", selected" : ""));
    }
  }
  return texts;
}

}  // namespace QEVSettings
