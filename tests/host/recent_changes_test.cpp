// SPDX-License-Identifier: MIT
#include "QEVSettings/LayeredPreferences.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "headless/Window.hpp"
#include "history/ChangeReversal.hpp"
#include "history/RecentChangesView.hpp"
#include "history/historyRules.hpp"
#include "support/TemporaryFolder.hpp"

#include <gmock/gmock.h>

#include <fstream>

namespace zorvantine {
namespace {

using foundation::UserDefaults;
using headless::Key;
using QEVSettings::PreferenceValue;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using viewkit::Role;

const std::string kZone(QEVSettings::kPrefTimezoneString.name);

// Somebody who owns no file of the test.
constexpr unsigned kStranger = 4242;

class RecentChanges : public testing::Test {
protected:
  RecentChanges() {
    store->setHistoryRules({.isSecret = [](std::string_view key) { return key == "password"; }});
  }

  // Opens the window, which writes through `refusal` unless it is empty.
  headless::Window open(const std::string& refusal = {}) {
    const auto write = [this, refusal](std::string_view key, std::optional<PreferenceValue> value) {
      if (!refusal.empty()) return foundation::Outcome(foundation::Error{refusal});
      value ? layers.setObject(*std::move(value), key) : layers.removeObject(key);
      return foundation::done();
    };
    return headless::Window(
        RecentChangesView{.model = std::make_shared<RecentChangesModel>(*store, layers, write)},
        {.defaultStore = layers}, {.size = viewkit::Size{720, 480}});
  }

  static std::vector<std::string> itemsOf(const headless::Window& window) {
    std::vector<std::string> labels;
    for (const auto& item : window.findAll(Role::listItem)) {
      // Without the time, as in "2026-11-25 21:41:59, ".
      labels.push_back(item.label().substr(21));
    }
    return labels;
  }

  // Locks a setting as an administrator does.
  void lock(const std::string& json) {
    const auto locks = folder.path() / QEVSettings::HostIdentity::current().id / "locks.d";
    std::filesystem::create_directories(locks);
    std::ofstream(locks / "lock.json") << json;
    layers.reload();
  }

  static bool canPutBack(const headless::Window& window) {
    return window.find(Role::button, "Put Back").isEnabled();
  }

  const support::TemporaryFolder folder;
  const std::unique_ptr<UserDefaults> store =
      UserDefaults::open(folder.path() / "preferences.sqlite");
  QEVSettings::LayeredPreferences layers{
      *store,
      {.configurationFolders = std::vector<std::filesystem::path>{folder.path()},
       .person = kStranger}};
};

TEST_F(RecentChanges, ListTellsWhatWasChangedAndByTheKeyboardOneValueIsPutBack) {
  store->setObject("Asia/Tokyo", kZone);
  store->setObject("Europe/Berlin", kZone);
  auto window = open();
  EXPECT_THAT(itemsOf(window),
              ElementsAre("Packet time zone, before: Asia/Tokyo, after: Europe/Berlin",
                          "Packet time zone, before: no value, after: Asia/Tokyo"));
  EXPECT_FALSE(canPutBack(window));
  window.press(Key::tab);
  ASSERT_EQ(window.focused()->label(), "Recent Changes");
  window.press(Key::downArrow);
  EXPECT_EQ(window.findAll(Role::listItem)[0].isSelected(), true);
  window.press(Key::tab);
  window.press(Key::enter);
  EXPECT_EQ(store->stringForKey(kZone), "Asia/Tokyo");
  EXPECT_THAT(itemsOf(window),
              ElementsAre("Packet time zone, before: Europe/Berlin, after: Asia/Tokyo",
                          "Packet time zone, before: Asia/Tokyo, after: Europe/Berlin",
                          "Packet time zone, before: no value, after: Asia/Tokyo"));
  // The selected change stays selected, and has been put back.
  EXPECT_EQ(window.findAll(Role::listItem)[1].isSelected(), true);
  EXPECT_FALSE(canPutBack(window));
  window.findText("The setting has this value now.");
}

TEST_F(RecentChanges, ClickSelectsAndPutBackRemovesWhatWasNotThereBefore) {
  store->setInteger(1, "a");
  store->setObject("hunter2", "password");
  auto window = open();
  window.click(window.findAll(Role::listItem)[0]);
  EXPECT_EQ(window.findAll(Role::listItem)[1].isSelected(), false);
  EXPECT_THAT(itemsOf(window)[0], HasSubstr("after: secret"));
  window.click(window.find(Role::button, "Put Back"));
  EXPECT_FALSE(store->objectForKey("password"));
  // From now on a former value is a secret.
  window.click(window.findAll(Role::listItem)[0]);
  EXPECT_FALSE(canPutBack(window));
  window.findText("The former value was not kept.");
  window.click(window.findAll(Role::listItem)[2]);
  window.click(window.find(Role::button, "Put Back"));
  EXPECT_FALSE(store->objectForKey("a"));
}

TEST_F(RecentChanges, ValuesAreTextsOfTheirSettingsAndAnythingElseIsShownAsItIsStored) {
  const std::string appearance(QEVSettings::kAppearanceName.name);
  store->setObject(QEVSettings::kAppearanceNameAqua, appearance);
  store->setObject(7, appearance);
  store->setObject("of no setting\n", "a");
  const auto window = open();
  EXPECT_THAT(itemsOf(window), ElementsAre("a, before: no value, after: of no setting\\n",
                                           "Appearance, before: Light, after: 7",
                                           "Appearance, before: no value, after: Light"));
}

TEST_F(RecentChanges, ValueFromBeforeTheMigrationIsPutBackInItsPresentForm) {
  const std::string key = "com_velloquin_qev_dns_protocols";
  const auto bytes = [](std::string_view text) {
    return PreferenceValue::Bytes(text.begin(), text.end());
  };
  const std::string record = R"([{"protocolName":"DNS","protocolPorts":)";
  store->setObject(bytes(record + R"([53,5353]}])"), key);
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(*store);
  store->removeObject(key);
  store->setInteger(3, QEVSettings::kAnalyzerSelectedIndex.name);
  auto window = open();
  // The schema's version and the selected analyzer are not listed.
  ASSERT_THAT(itemsOf(window), SizeIs(3));
  window.click(window.findAll(Role::listItem)[1]);
  window.click(window.find(Role::button, "Put Back"));
  const auto value = store->objectForKey(key);
  ASSERT_TRUE(value && value->asData());
  EXPECT_EQ(std::string(value->asData()->begin(), value->asData()->end()),
            record + R"("53,5353"}])");
}

TEST_F(RecentChanges, RefusalIsShownAndTheStoreStays) {
  store->setInteger(1, "a");
  store->setInteger(2, "a");
  auto window = open("the port is taken");
  window.click(window.findAll(Role::listItem)[0]);
  window.click(window.find(Role::button, "Put Back"));
  EXPECT_EQ(store->integerForKey("a"), 2);
  window.findText("the port is taken");
}

TEST_F(RecentChanges, ChangeElsewhereAppearsAndAnEmptyHistorySaysWhy) {
  auto window = open();
  window.findText("No changes are remembered yet.");
  store->setInteger(1, "a");
  window.settle();
  EXPECT_THAT(itemsOf(window), SizeIs(1));
  store->setBool(false, QEVSettings::kKeepsHistory.name);
  window.settle();
  EXPECT_THAT(itemsOf(window), SizeIs(0));
  window.findText("The history of changes is turned off.");
}

TEST_F(RecentChanges, OnlyWhatIsInSightOfAThousandChangesIsBuilt) {
  for (int i = 0; i < 1'100; ++i) store->setInteger(i, "a");
  auto window = open();
  EXPECT_LT(window.findAll(Role::listItem).size(), 100U);
  window.press(Key::tab);
  window.press(Key::end);
  EXPECT_EQ(itemsOf(window).back(), "a, before: 99, after: 100");
  EXPECT_EQ(window.findAll(Role::listItem).back().isSelected(), true);
}

TEST_F(RecentChanges, ReversalIsAllOrNothing) {
  store->setInteger(1, "a");
  store->setInteger(2, "a");
  store->setObject("text", "b");
  store->removeObject("b");
  const auto history = store->history();
  ASSERT_TRUE(history);
  const auto reversal = reversalOf(*history);
  ASSERT_TRUE(reversal);
  EXPECT_EQ(*reversal, (UserDefaults::Changes{{"a", std::nullopt}, {"b", std::nullopt}}));
  EXPECT_THAT(*reversalOf(std::span(*history).first(3)),
              testing::UnorderedElementsAre(testing::Pair("a", PreferenceValue(1)),
                                            testing::Pair("b", std::nullopt)));
  auto changedSince = *history;
  changedSince.front().isInForce = false;
  EXPECT_THAT(reversalOf(changedSince).error().message, HasSubstr("keeps no history"));
  const auto since = changesSince(*history, history->back().time - std::chrono::hours(1));
  ASSERT_TRUE(since);
  EXPECT_THAT(*since, SizeIs(4));
  EXPECT_THAT(*changesSince(*history, history->front().time), SizeIs(0));
  const auto tooOld = std::chrono::system_clock::now() - std::chrono::days(91);
  EXPECT_THAT(changesSince(*history, tooOld).error().message, HasSubstr("does not reach back"));
}

TEST_F(RecentChanges, LockedSettingIsNotPutBackAndALockTurnsTheHistoryOff) {
  const auto layered = [this]() -> const QEVSettings::PreferencesStore& { return layers; };
  store->setHistoryRules(historyRules(layered));
  store->setObject("Asia/Tokyo", kZone);
  store->setObject("Europe/Berlin", kZone);
  auto window = open();
  window.click(window.findAll(Role::listItem)[0]);
  EXPECT_TRUE(canPutBack(window));
  lock(R"({"com_velloquin_zorvantine_prefTimezone": {"type": "string", "value": "Etc/UTC"}})");
  window.click(window.findAll(Role::listItem)[1]);
  EXPECT_FALSE(canPutBack(window));
  window.findText(QEVSettings::lockedMessage(kZone));
  lock(R"({"com_velloquin_zorvantine_keepsHistory": {"type": "boolean", "value": false}})");
  store->setInteger(1, "a");
  window.settle();
  EXPECT_THAT(itemsOf(window), SizeIs(0));
  window.findText("The history of changes is turned off.");
}

}  // namespace
}  // namespace zorvantine
