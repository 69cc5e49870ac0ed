// SPDX-License-Identifier: MIT
#include "RandomWalk.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace QEVSettings {

using headless::Key;
using viewkit::Role;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSteps = 300;
#else
constexpr int kSteps = 1000;
#endif

constexpr std::array kPorts{"90", "82, 81", "none", "70000, 5", "1-9", "443"};
constexpr std::array kTabs{"General", "Capture", "MITM Proxy", "Analyzer", "Fonts"};

viewkit::ColorWellControl colorWell(const SettingsWindow& window) {
  return std::get<viewkit::ColorWellControl>(*window->find(Role::colorWell).content().control());
}

}  // namespace

const std::vector<RandomWalk::NamedStep>& RandomWalk::steps() {
  static const std::vector<NamedStep> all{
      {"change something elsewhere", &RandomWalk::changeSomethingElsewhere, 4},
      {"visit a tab", &RandomWalk::visitTab, 2},
      {"reopen the window", &RandomWalk::reopenWindow, 1},
      {"select an analyzer", &RandomWalk::selectAnalyzer, 2},
      {"pick from a row's menu", &RandomWalk::pickFromRow, 5},
      {"type ports", &RandomWalk::typePorts, 6},
      {"reset the ports", &RandomWalk::resetPorts, 1},
      {"flip a switch", &RandomWalk::flipSwitch, 4},
      {"flip an update switch", &RandomWalk::flipUpdateSwitch, 1},
      {"choose a colour", &RandomWalk::chooseColor, 2},
      {"cancel the colour chooser", &RandomWalk::cancelColor, 1},
      {"write the note", &RandomWalk::writeNote, 2},
      {"choose a mode", &RandomWalk::chooseMode, 2},
      {"choose a time zone", &RandomWalk::chooseZone, 1},
      {"choose a font", &RandomWalk::chooseFont, 2},
      {"choose an interface", &RandomWalk::chooseInterface, 2},
      {"type in a field", &RandomWalk::typeInField, 8},
  };
  return all;
}

void RandomWalk::run() {
  std::vector<const NamedStep*> weighted;
  for (const NamedStep& each : steps()) weighted.insert(weighted.end(), each.weight, &each);
  for (int i = 0; i < kSteps; ++i) {
    const std::size_t number = random(windows.size());
    SettingsWindow& window = windows.at(number);
    const NamedStep& step = *oneOf(weighted);
    taken_.push_back(std::to_string(i) + ", window " + std::to_string(number) + ": " + step.name);
    window->becomeKey();
    (this->*step.take)(window);
    check();
    if (testing::Test::HasFailure()) return;
  }
  for (const char* tab : kTabs) {
    taken_.emplace_back(tab);
    for (SettingsWindow& each : windows) {
      reopen(each);
      go(each, tab);
    }
    check();
    EXPECT_EQ(shownTexts(windows[0]), shownTexts(windows[1]));
  }
  for (const auto& [key, value] : windows[0].store->dictionaryRepresentation()) {
    EXPECT_EQ(other.printed(key), testing::PrintToString(value)) << key;
  }
}

std::string RandomWalk::lastSteps() const {
  constexpr std::size_t kCount = 40;
  std::string text;
  for (std::size_t i = taken_.size() - std::min(taken_.size(), kCount); i < taken_.size(); ++i) {
    text += taken_[i] + '\n';
  }
  return text;
}

void RandomWalk::changeSomethingElsewhere(SettingsWindow& /*window*/) {
  random(5) == 0 ? selectElsewhere() : changeElsewhere();
}

void RandomWalk::visitTab(SettingsWindow& window) { go(window, oneOf(kTabs)); }

void RandomWalk::reopenWindow(SettingsWindow& window) { reopen(window); }

void RandomWalk::selectAnalyzer(SettingsWindow& window) {
  select(window, static_cast<int>(random(2)));
}

// The list changes elsewhere while the menu is open.
void RandomWalk::pickFromRow(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  const std::size_t row = random(records.size());
  const std::string id = records[row].id;
  const bool isName = perhaps();
  const auto items = window->menuItems(rowMenu(window, isName ? "Name" : "Source", row));
  commit(window);
  meanwhile([this] { changePortsElsewhere(); });
  const std::size_t choice = random(items.size());
  items[choice].action();
  Record* changed = record(id);
  if (changed && isName) changed->name = kNames.at(choice);
  if (changed && !isName) changed->source = static_cast<std::int64_t>(choice);
}

// The list changes elsewhere while a text is being typed; it is committed at once, or when the
// field is left.
void RandomWalk::typePorts(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  const std::size_t row = random(records.size());
  const std::string id = records[row].id;
  const std::string text = oneOf(kPorts);
  window->click(portField(window, row));
  if (window.typing != id) commit(window);
  window->selectAll();
  window->type(text);
  window.typed.erase(id);
  // A text like the stored one is nothing to commit.
  if (text != records[row].ports) window.typed[id] = text;
  window.typing = id;
  meanwhile([this] { changePortsElsewhere(); });
  if (perhaps()) {
    window->press(Key::enter);
    commit(window);
  }
}

void RandomWalk::resetPorts(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  if (perhaps()) changePortsElsewhere();
  window->click(window->find(Role::button, "Reset"));
  commit(window);
  std::erase_if(window.typed, [this](const auto& typed) { return record(typed.first) != nullptr; });
  records = factoryRecords();
}

void RandomWalk::flipSwitch(SettingsWindow& window) {
  const SwitchOnPage& toggle = oneOf(switches);
  goTo(window, toggle);
  window->click(window->find(Role::toggle, toggle.label));
  commit(window);
  values.insert_or_assign(toggle.key, !isOn(toggle));
}

void RandomWalk::flipUpdateSwitch(SettingsWindow& window) {
  go(window, "General");
  const auto toggles = window->findAll(Role::toggle);
  const auto& toggle = oneOf(toggles);
  auto& elsewhere = updater->updaterController().updater();
  if (perhaps()) elsewhere.setSendsSystemProfile(perhaps());
  hear();
  const bool wasOn = toggle.value() == "on";
  if (!toggle.isEnabled()) return;
  window->click(toggle);
  EXPECT_EQ(toggle.value() == "on", !wasOn);
  EXPECT_EQ(elsewhere.automaticallyChecksForUpdates(), toggles[0].value() == "on");
  EXPECT_EQ(elsewhere.automaticallyDownloadsUpdates(), toggles[1].value() == "on");
  EXPECT_EQ(elsewhere.sendsSystemProfile(), toggles[2].value() == "on");
}

void RandomWalk::chooseColor(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  const auto well = colorWell(window);
  meanwhile([this] { changeElsewhere(); });
  const std::size_t number = random(10);
  well.choose(*QEVCommonTools::colorFromRawValue(rawColor(number)));
  values.insert_or_assign(kColorKey, rawColor(number));
}

void RandomWalk::cancelColor(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  hear();
  const auto well = colorWell(window);
  const auto cancel = well.checkpoint();
  well.choose({.red = 1, .green = 1, .blue = 1, .opacity = 0.5});
  meanwhile([this] { changePortsElsewhere(); });
  cancel();
}

void RandomWalk::writeNote(SettingsWindow& window) {
  if (!showsPorts(window)) select(window, 0);
  const auto field = window->find(Role::textField, kNote);
  window->click(field);
  commit(window);
  window->type("x");
  values.insert_or_assign(kNoteKey, field.value());
  if (perhaps()) {
    changeElsewhere();
    hear();
  }
  window->type("y");
  window->press(Key::enter);
  EXPECT_THAT(field.value(), testing::HasSubstr("y"));
  values.insert_or_assign(kNoteKey, field.value());
}

void RandomWalk::noteMode(const std::string& mode) {
  values.insert_or_assign(std::string(QEVKonstantsKeys::kAppearanceUseSystem.name), mode == "Auto");
  if (mode == "Auto") return;
  values.insert_or_assign(std::string(QEVKonstantsKeys::kAppearanceName.name),
                          mode == "Light" ? kAppearanceNameAqua : kAppearanceNameDarkAqua);
}

void RandomWalk::chooseMode(SettingsWindow& window) {
  constexpr std::array modes{"Light", "Dark", "Auto"};
  go(window, "General");
  meanwhile([this] { changeElsewhere(); });
  const std::string mode = oneOf(modes);
  window->click(window->find(Role::button, mode));
  noteMode(mode);
}

void RandomWalk::chooseZone(SettingsWindow& window) {
  go(window, "General");
  const auto items = window->menuItems(window->find(Role::menuButton, "Packet time zone"));
  meanwhile([this] { changeElsewhere(); });
  const auto& item = oneOf(items);
  item.action();
  values.insert_or_assign(kZoneKey, item.title);
}

void RandomWalk::chooseFont(SettingsWindow& window) {
  go(window, "Fonts");
  const FontPickerOnPage& font = oneOf(fontPickers());
  const auto picker = window->find(Role::fontPicker, font.label);
  meanwhile([this] { changeElsewhere(); });
  const auto control = std::get<viewkit::FontPickerControl>(*picker.content().control());
  // A chooser opens on the stored font; the user changes its size alone, or all of it.
  appkit::Font chosen = control.read();
  EXPECT_EQ(chosen, (QEVCommonTools::FontPreferences(*window.store).*font.get)());
  if (perhaps()) chosen = {.family = "Serif", .style = "", .pointSize = 12};
  chosen.pointSize = static_cast<double>(random(10) + 8);
  meanwhile([this] { changeElsewhere(); });
  control.choose(chosen);
  values.insert_or_assign(font.key, PreferenceDictionary{{"family", chosen.family},
                                                         {"style", chosen.style},
                                                         {"pointSize", chosen.pointSize}});
}

void RandomWalk::chooseInterface(SettingsWindow& window) {
  go(window, "Capture");
  meanwhile([this] { changeElsewhere(); });
  const auto rows = window->findAll(Role::listItem);
  const std::size_t index = random(rows.size());
  window->click(rows[index]);
  values.insert_or_assign(kInterfaceKey, kInterfaces.at(index));
}

void RandomWalk::typeInField(SettingsWindow& window) {
  const FieldOnPage& field = oneOf(fieldsOfCaptureAndProxy());
  go(window, field.tab);
  const auto element = window->find(Role::textField, field.label);
  if (!field.isEnabled(values)) return;
  const auto& text = oneOf(field.texts);
  taken_.back() += std::string(": ") + field.label + " \"" + text.typed + '"';
  window->click(element);
  commit(window);
  window->selectAll();
  if (*text.typed == '\0') window->press(Key::deleteBackward);
  window->type(text.typed);
  window.typed.erase(field.label);
  // A text like the stored one is nothing to commit.
  if (field.shown(values) != text.typed) window.typed[field.label] = text.typed;
  window.typing = field.label;
  if (perhaps()) changeElsewhere();
  const std::size_t next = random(3);
  // The change may disable the field, which then takes no key.
  if (next != 2 || perhaps()) hear();
  if (window.typing.empty() || !window.typed.contains(field.label)) return;
  switch (next) {
    case 0: window->press(Key::enter); return commit(window);
    case 1:
      window->press(Key::escape);
      window.typing.clear();
      window.typed.erase(field.label);
      return;
    default: return;
  }
}

}  // namespace QEVSettings
