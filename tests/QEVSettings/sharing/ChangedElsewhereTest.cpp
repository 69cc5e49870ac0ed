// SPDX-License-Identifier: MIT
// Every kind of control, changed by a second process while the user uses it in one of two windows.

#include "TwoWindows.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace QEVSettings {
namespace {

using headless::Element;
using headless::Key;
using viewkit::Role;

// Each function notes what it changes (see TwoWindows).
struct ControlKind {
  const char* name;
  const char* tab;
  std::function<Element(const TwoWindows&, const SettingsWindow&)> find;
  std::function<void(TwoWindows&)> changeElsewhere;
  // Uses the control from closed to closed.
  std::function<void(TwoWindows&, SettingsWindow&, const Element&)> use;
  // Opens it, and returns what picks something in what is open; nothing for what does not open.
  std::function<std::function<void()>(TwoWindows&, SettingsWindow&, const Element&)> open = {};
  // What is typed into a field; commits as that text.
  const char* typed = nullptr;
};

std::function<Element(const TwoWindows&, const SettingsWindow&)> labelled(Role role,
                                                                          const char* label) {
  return [=](const TwoWindows&, const SettingsWindow& window) { return window->find(role, label); };
}

std::function<void(TwoWindows&)> stored(const std::string& key, const PreferenceValue& value) {
  return [=](TwoWindows& both) { both.storeElsewhere(key, value); };
}

const std::string kAppearanceKey(QEVKonstantsKeys::kAppearanceName.name);
const std::string kUseSystemKey(QEVKonstantsKeys::kAppearanceUseSystem.name);

ControlKind switchKind(const char* name, const char* tab, const char* label,
                       const std::string& key) {
  return {.name = name,
          .tab = tab,
          .find = labelled(Role::toggle, label),
          .changeElsewhere = stored(key, false),
          .use = [key](TwoWindows& both, SettingsWindow& window, const Element& toggle) {
            window->click(toggle);
            both.values.insert_or_assign(key, true);
          }};
}

ControlKind timeZoneMenu() {
  return {.name = "pop-up menu",
          .tab = "General",
          .find = labelled(Role::menuButton, "Packet time zone"),
          .changeElsewhere = stored(TwoWindows::kZoneKey, "Europe/Berlin"),
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& menu) {
                const std::string title = window->menuItems(menu).at(2).title;
                window->choose(menu, title);
                both.values.insert_or_assign(TwoWindows::kZoneKey, title);
              },
          .open =
              [](TwoWindows& both, SettingsWindow& window, const Element& menu) {
                const auto items = window->menuItems(menu);
                EXPECT_TRUE(window->openMenu(menu));
                window->press(Key::upArrow);
                const auto current = std::ranges::find(items, true, &viewkit::MenuItem::isCurrent);
                return [&both, &window, previous = std::prev(current)->title] {
                  window->press(Key::enter);
                  both.values.insert_or_assign(TwoWindows::kZoneKey, previous);
                };
              }};
}

ControlKind sourceMenu() {
  return {
      .name = "menu in a row",
      .tab = "Analyzer",
      .find = [](const TwoWindows&,
                 const SettingsWindow& window) { return TwoWindows::rowMenu(window, "Source", 0); },
      .changeElsewhere =
          [](TwoWindows& both) {
            both.other.setPorts(TwoWindows::kPortsKey, 0, "7");
            both.records[0].ports = "7";
          },
      .use =
          [](TwoWindows& both, SettingsWindow& window, const Element& menu) {
            window->choose(menu, "UDP/TCP");
            both.records[0].source = 3;
          },
      .open =
          [](TwoWindows& both, SettingsWindow& window, const Element& menu) {
            EXPECT_TRUE(window->openMenu(menu));
            window->press(Key::downArrow);
            return [&both, &window] {
              window->press(Key::enter);
              both.records[0].source = 2;
            };
          }};
}

void note(TwoWindows& both, SettingsWindow& window, const std::string& what, const char* text) {
  window.typed[what] = text;
  window.typing = what;
  window->press(Key::enter);
  both.commit(window);
}

ControlKind filterField() {
  return {.name = "text field",
          .tab = "Capture",
          .find = labelled(Role::textField, "Capture filter"),
          .changeElsewhere = stored("com_velloquin_zorvantine_capture_filter", "elsewhere"),
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& field) {
                window->click(field);
                window->selectAll();
                window->type("tcp");
                note(both, window, "Capture filter", "tcp");
              },
          .typed = "tcp"};
}

ControlKind portsField() {
  return {.name = "text field in a row",
          .tab = "Analyzer",
          .find = [](const TwoWindows& both,
                     const SettingsWindow& window) { return both.portField(window, 1); },
          .changeElsewhere =
              [](TwoWindows& both) {
                both.other.setPorts(TwoWindows::kPortsKey, 1, "7");
                both.records[1].ports = "7";
              },
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& field) {
                window->click(field);
                window->selectAll();
                window->type("90");
                note(both, window, both.records[1].id, "90");
              },
          .typed = "90"};
}

appkit::RGBA color(std::size_t number) {
  return *QEVCommonTools::colorFromRawValue(rawColor(number));
}

ControlKind colorWell() {
  return {.name = "colour well",
          .tab = "Analyzer",
          .find = labelled(Role::colorWell, "Packet coloring"),
          .changeElsewhere = stored(TwoWindows::kColorKey, rawColor(3)),
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& well) {
                window->choose(well, color(5));
                both.values.insert_or_assign(TwoWindows::kColorKey, rawColor(5));
              },
          .open =
              [](TwoWindows& both, SettingsWindow&, const Element& well) {
                const auto control = std::get<viewkit::ColorWellControl>(*well.content().control());
                return [&both, choose = control.choose] {
                  choose(color(6));
                  both.values.insert_or_assign(TwoWindows::kColorKey, rawColor(6));
                };
              }};
}

PreferenceDictionary fontValue(const char* family, double size) {
  return {{"family", family}, {"style", ""}, {"pointSize", size}};
}

ControlKind fontPicker() {
  static const std::string key(QEVKonstantsKeys::kFontConsoleRaw.name);
  return {.name = "font picker",
          .tab = "Fonts",
          .find = labelled(Role::fontPicker, "Console Font:"),
          .changeElsewhere = stored(key, fontValue("Test Mono", 20)),
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& picker) {
                window->choose(picker,
                               appkit::Font{.family = "Serif", .style = "", .pointSize = 9});
                both.values.insert_or_assign(key, fontValue("Serif", 9));
              },
          // Only the size is chosen: the family is the one of elsewhere.
          .open =
              [](TwoWindows& both, SettingsWindow&, const Element& picker) {
                return [&both, picker] {
                  const auto control =
                      std::get<viewkit::FontPickerControl>(*picker.content().control());
                  appkit::Font font = control.read();
                  font.pointSize = 11;
                  control.choose(font);
                  both.values.insert_or_assign(key, fontValue("Test Mono", 11));
                };
              }};
}

ControlKind interfaceList() {
  return {.name = "table of one choice",
          .tab = "Capture",
          .find = [](const TwoWindows&,
                     const SettingsWindow& window) { return window->find(Role::list); },
          .changeElsewhere = stored(TwoWindows::kInterfaceKey, "lo"),
          .use =
              [](TwoWindows& both, SettingsWindow& window, const Element& list) {
                window->click(list.findAll(Role::listItem)[0]);
                both.values.insert_or_assign(TwoWindows::kInterfaceKey, TwoWindows::kInterfaces[0]);
              }};
}

ControlKind modeButtons() {
  return {.name = "group of buttons",
          .tab = "General",
          .find = labelled(Role::button, "Light"),
          .changeElsewhere = stored(kUseSystemKey, true),
          .use = [](TwoWindows& both, SettingsWindow& window, const Element& button) {
            window->click(button);
            both.values.insert_or_assign(kUseSystemKey, false);
            both.values.insert_or_assign(kAppearanceKey, "NSAppearanceNameAqua");
          }};
}

std::vector<ControlKind> allKinds() {
  return {
      switchKind("switch of Capture", "Capture", "Promiscuous mode",
                 "com_velloquin_zorvantine_capture_promiscuous"),
      switchKind("switch of the proxy", "MITM Proxy", "Proxy",
                 "com_velloquin_zorvantine_proxy_enabled"),
      switchKind("switch of an analyzer", "Analyzer", "An option", "com_velloquin_qev_walk_option"),
      timeZoneMenu(),
      sourceMenu(),
      filterField(),
      portsField(),
      colorWell(),
      fontPicker(),
      interfaceList(),
      modeButtons()};
}

class ChangedElsewhereTest : public testing::TestWithParam<ControlKind> {
protected:
  void SetUp() override {
    for (SettingsWindow& each : both.windows) both.go(each, kind.tab);
    window->becomeKey();
  }

  Element control() const { return kind.find(both, window); }
  // The node with the keyboard may lie inside of the node with the role.
  bool isFocused() const {
    const auto focused = window->focused();
    return focused && focused->frame() == control().frame();
  }
  void focus() {
    for (int presses = 0; presses < 100 && !isFocused(); ++presses) window->press(Key::tab);
    ASSERT_TRUE(isFocused());
  }
  // Then both windows show it, and nothing else is stored.
  void changeElsewhere() {
    kind.changeElsewhere(both);
    both.check();
  }
  void useAndCheck() {
    kind.use(both, window, control());
    both.check();
  }

  const ControlKind& kind = GetParam();
  TwoWindows both;
  SettingsWindow& window = both.windows[0];
};

TEST_P(ChangedElsewhereTest, WhileFocused) {
  focus();
  changeElsewhere();
  EXPECT_TRUE(isFocused()) << "it keeps the keyboard";
  useAndCheck();
}

TEST_P(ChangedElsewhereTest, WhenJustLeft) {
  focus();
  window->press(Key::tab);
  changeElsewhere();
  useAndCheck();
}

class OpenedControlTest : public ChangedElsewhereTest {};

TEST_P(OpenedControlTest, ChangedElsewhereWhileOpen) {
  const auto pick = kind.open(both, window, control());
  changeElsewhere();
  pick();
  both.check();
}

class TypedControlTest : public ChangedElsewhereTest {};

TEST_P(TypedControlTest, ChangedElsewhereWhileTypedIntoAndWhenJustLeft) {
  window->click(control());
  window->selectAll();
  window->type(kind.typed);
  kind.changeElsewhere(both);
  both.hear();
  EXPECT_EQ(control().value(), kind.typed) << "the text stays";
  const Element other = kind.find(both, both.windows[1]);
  EXPECT_NE(other.value(), kind.typed);

  window->press(Key::tab);
  both.hear();
  EXPECT_EQ(other.value(), kind.typed) << "the text that was left last is stored";
  kind.changeElsewhere(both);
  both.check();
}

std::vector<ControlKind> kindsThatOpen() {
  std::vector<ControlKind> kinds = allKinds();
  std::erase_if(kinds, [](const ControlKind& each) { return !each.open; });
  return kinds;
}

std::vector<ControlKind> kindsThatAreTypedInto() {
  std::vector<ControlKind> kinds = allKinds();
  std::erase_if(kinds, [](const ControlKind& each) { return !each.typed; });
  return kinds;
}

std::string nameOf(const testing::TestParamInfo<ControlKind>& info) {
  std::string name = info.param.name;
  std::erase(name, '-');
  std::ranges::replace(name, ' ', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Controls, ChangedElsewhereTest, testing::ValuesIn(allKinds()), nameOf);
INSTANTIATE_TEST_SUITE_P(Controls, OpenedControlTest, testing::ValuesIn(kindsThatOpen()), nameOf);
INSTANTIATE_TEST_SUITE_P(Controls, TypedControlTest, testing::ValuesIn(kindsThatAreTypedInto()),
                         nameOf);

void PrintTo(const ControlKind& kind, std::ostream* out) { *out << kind.name; }

}  // namespace
}  // namespace QEVSettings
