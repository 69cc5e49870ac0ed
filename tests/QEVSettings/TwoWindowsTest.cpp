// Two windows over one store and a second process that writes to it, driven at random from a fixed
// seed.

#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "TwoWindows.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

using namespace walk;
using headless::Key;
using viewkit::Role;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSteps = 300;
#else
constexpr int kSteps = 1000;
#endif

constexpr std::array kTexts{"90", "82, 81", "none", "70000, 5", "1-9", "443"};

class TwoWindowsTest : public TwoWindows {
protected:
  void changeElsewhere();
  void changePortsElsewhere();
  void selectElsewhere();
  void pickFromRow(SettingsWindow& window);
  void typePorts(SettingsWindow& window);
  void resetPorts(SettingsWindow& window);
  void flipSwitch(SettingsWindow& window);
  void chooseColor(SettingsWindow& window);
  void writeNote(SettingsWindow& window);
  void useGeneralPage(SettingsWindow& window);
  void chooseFont(SettingsWindow& window);
  void step();
  void check();
};

void TwoWindowsTest::changeElsewhere() {
  switch (random(5)) {
    case 0: {
      const bool isOn = perhaps();
      return acknowledge(
          kOptionKey, [&] { other_.setBool(kOptionKey, isOn); }, isOn);
    }
    case 1: {
      const std::string color = rawColor(random(10));
      return acknowledge(
          kColorKey, [&] { other_.setString(kColorKey, color); }, color);
    }
    case 2: {
      const std::string zone = perhaps() ? "GMT" : "Europe/Berlin";
      return acknowledge(
          kZoneKey, [&] { other_.setString(kZoneKey, zone); }, zone);
    }
    case 3: {
      const std::string note = "note " + std::to_string(random(100));
      return acknowledge(
          kNoteKey, [&] { other_.setString(kNoteKey, note); }, note);
    }
    default: return changePortsElsewhere();
  }
}

void TwoWindowsTest::changePortsElsewhere() {
  const std::size_t index = random(records_.size());
  switch (random(6)) {
    case 0:
      if (records_.size() > factory_.size()) {
        other_.removeLast(kPortsKey);
        records_.pop_back();
      }
      return;
    case 1:
      if (records_.size() < 5) {
        const std::string name = "Added " + std::to_string(random(1000));
        records_.push_back({other_.append(kPortsKey, name), name, "1", 1});
      }
      return;
    case 2:
      records_[index].name = kNames.at(random(kNames.size()));
      return other_.setName(kPortsKey, index, records_[index].name);
    default:
      records_[index].ports = std::to_string(random(1000) + 1);
      return other_.setPorts(kPortsKey, index, records_[index].ports);
  }
}

void TwoWindowsTest::selectElsewhere() {
  // Where both windows hold a text, which of them commits last is nobody's promise.
  if (!windows_[0].typing.empty() && !windows_[1].typing.empty()) return;
  const int index = static_cast<int>(random(2));
  other_.setInteger(kSelectionKey, index);
  selected(index);
}

// The list changes elsewhere while the menu is open.
void TwoWindowsTest::pickFromRow(SettingsWindow& window) {
  const std::size_t row = random(records_.size());
  const std::string id = records_[row].id;
  const bool isName = perhaps();
  const auto items = window->menuItems(menu(window, isName ? "Name" : "Source", row));
  commit(window);
  if (perhaps()) changePortsElsewhere();
  if (perhaps()) hear();
  const std::size_t choice = random(items.size());
  items[choice].action();
  Record* changed = record(id);
  if (changed && isName) changed->name = kNames.at(choice);
  if (changed && !isName) changed->source = static_cast<std::int64_t>(choice);
}

// The list changes elsewhere while a text is being typed; it is committed at once, or when the
// field is left.
void TwoWindowsTest::typePorts(SettingsWindow& window) {
  const std::size_t row = random(records_.size());
  const std::string id = records_[row].id;
  const std::string text = kTexts.at(random(kTexts.size()));
  window->click(portFields(window)[row]);
  if (window.typing != id) commit(window);
  window->selectAll();
  window->type(text);
  window.typed.erase(id);
  // A text like the stored one is nothing to commit.
  if (text != records_[row].ports) window.typed[id] = text;
  window.typing = id;
  if (perhaps()) changePortsElsewhere();
  if (perhaps()) hear();
  if (perhaps()) {
    window->press(Key::enter);
    commit(window);
  }
}

void TwoWindowsTest::resetPorts(SettingsWindow& window) {
  if (perhaps()) changePortsElsewhere();
  window->click(window->find(Role::button, "Reset"));
  commit(window);
  window.typed.clear();
  records_ = factoryRecords();
}

void TwoWindowsTest::flipSwitch(SettingsWindow& window) {
  const std::string& key = perhaps() ? kOptionKey : kUsesColorKey;
  const auto toggle =
      window->find(Role::toggle, key == kOptionKey ? "An option" : "Packet coloring");
  window->click(toggle);
  commit(window);
  values_.insert_or_assign(key, !*values_.at(key).asBoolean());
  EXPECT_EQ(toggle.value() == "on", *values_.at(key).asBoolean());
}

void TwoWindowsTest::chooseColor(SettingsWindow& window) {
  const auto well =
      std::get<viewkit::ColorWellControl>(*window->find(Role::colorWell).content().control());
  if (perhaps()) changeElsewhere();
  const std::size_t number = random(10);
  well.choose(*QEVCommonTools::colorFromRawValue(rawColor(number)));
  values_.insert_or_assign(kColorKey, rawColor(number));
}

void TwoWindowsTest::writeNote(SettingsWindow& window) {
  const auto field = window->find(Role::textField, kNote);
  window->click(field);
  commit(window);
  window->type("x");
  if (perhaps()) {
    changeElsewhere();
    hear();
  }
  window->type("y");
  window->press(Key::enter);
  EXPECT_THAT(field.value(), testing::HasSubstr("y"));
  values_.insert_or_assign(kNoteKey, field.value());
}

void TwoWindowsTest::useGeneralPage(SettingsWindow& window) {
  go(window, "General");
  if (perhaps()) {
    changeElsewhere();
    hear();
  }
  const std::size_t choice = random(4);
  if (choice == 3) {
    const auto items = window->menuItems(window->find(Role::menuButton, "Packet time zone"));
    const auto& item = items.at(random(items.size()));
    item.action();
    values_.insert_or_assign(kZoneKey, item.title);
    return;
  }
  constexpr std::array modes{"Light", "Dark", "Auto"};
  window->click(window->find(Role::button, modes.at(choice)));
  values_.insert_or_assign(std::string(QEVKonstantsKeys::kAppearanceUseSystem.name), choice == 2);
  if (choice == 2) return;
  values_.insert_or_assign(std::string(QEVKonstantsKeys::kAppearanceName.name),
                           choice == 0 ? kAppearanceNameAqua : kAppearanceNameDarkAqua);
}

void TwoWindowsTest::chooseFont(SettingsWindow& window) {
  go(window, "Fonts");
  const appkit::Font font{
      .family = "Serif", .style = "", .pointSize = static_cast<double>(random(10) + 8)};
  window->choose(window->find(Role::fontPicker, "Console Font:"), font);
  const std::string key(QEVKonstantsKeys::kFontConsoleRaw.name);
  EXPECT_EQ(
      QEVCommonTools::FontPreferences(*window.store).com_velloquin_zorvantine_fontConsoleRaw(),
      font);
  values_.insert_or_assign(key, window.store->objectForKey(key).value_or(false));
}

void TwoWindowsTest::step() {
  SettingsWindow& window = windows_.at(random(2));
  window->becomeKey();
  const std::size_t what = random(16);
  if (what == 0) return useGeneralPage(window);
  if (what == 1) return chooseFont(window);
  if (what == 2) return select(window, static_cast<int>(random(2)));
  if (what == 3) return go(window, "Capture");
  if (what == 4) return perhaps() ? changeElsewhere() : selectElsewhere();
  if (!showsPorts(window)) select(window, 0);
  if (what < 8) return typePorts(window);
  if (what < 11) return pickFromRow(window);
  if (what == 11) return resetPorts(window);
  if (what == 12) return flipSwitch(window);
  if (what == 13) return chooseColor(window);
  if (what == 14) return writeNote(window);
  changePortsElsewhere();
}

// The stores hold what was acknowledged and nothing else; the windows show it, and what is being
// typed.
void TwoWindowsTest::check() {
  hear();
  for (SettingsWindow& each : windows_) {
    std::vector<Record> stored;
    for (const auto& protocol :
         QEVModels::AnalyzerPortsStore(kPortsKey, *each.store).decode(factory_)) {
      stored.push_back({protocol->id().text(), protocol->protocolName, protocol->protocolPorts,
                        protocol->sourceProtocol});
    }
    ASSERT_EQ(stored, records_);
    auto dictionary = each.store->dictionaryRepresentation();
    dictionary.erase(kPortsKey);
    ASSERT_EQ(dictionary, PreferenceDictionary(values_.begin(), values_.end()));
    // A text that is stored, or whose row is gone, is not being typed any more.
    std::erase_if(each.typed, [&](const auto& typed) {
      const Record* of = record(typed.first);
      return !of || of->ports == typed.second;
    });
    if (!showsPorts(each)) continue;
    const auto fields = portFields(each);
    ASSERT_EQ(fields.size(), records_.size());
    for (std::size_t row = 0; row < fields.size(); ++row) {
      const auto typed = each.typed.find(records_[row].id);
      ASSERT_EQ(fields[row].value(),
                typed != each.typed.end() ? typed->second : records_[row].ports);
      ASSERT_EQ(menu(each, "Name", row).value(), records_[row].name);
      ASSERT_EQ(menu(each, "Source", row).value(),
                kSources.at(static_cast<std::size_t>(records_[row].source)));
    }
  }
}

// What a window shows in its controls and messages.
std::vector<std::string> shown(const SettingsWindow& window) {
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

TEST_F(TwoWindowsTest, ARandomWalkEndsWithWindowsAndStoresThatAgree) {
  for (int number = 0; number < kSteps; ++number) {
    SCOPED_TRACE(number);
    step();
    check();
    if (HasFatalFailure()) return;
  }
  for (const char* tab : {"General", "Capture", "Fonts", "Analyzer"}) {
    SCOPED_TRACE(tab);
    for (SettingsWindow& each : windows_) go(each, tab);
    check();
    EXPECT_EQ(shown(windows_[0]), shown(windows_[1]));
  }
  for (const auto& [key, value] : windows_[0].store->dictionaryRepresentation()) {
    EXPECT_EQ(other_.printed(key), testing::PrintToString(value)) << key;
  }
}

}  // namespace
}  // namespace QEVSettings
