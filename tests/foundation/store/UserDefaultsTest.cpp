// SPDX-License-Identifier: MIT
#include "StoreFixture.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace foundation {
namespace {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

PreferenceDictionary everyType() {
  return {
      {"integer", std::numeric_limits<std::int64_t>::min()},
      {"true", true},
      {"zero", 0},
      {"real", 1.0},
      {"negative zero", -0.0},
      {"infinity", std::numeric_limits<double>::infinity()},
      {"string", "text"},
      {"empty string", ""},
      {"no text", std::string("\xFF\0\x80", 3)},
      {"data", PreferenceValue::Bytes{0, 1, 255}},
      {"empty data", PreferenceValue::Bytes{}},
      {"date", PreferenceValue::Date(PreferenceValue::Date::duration(-1234567.125))},
      {"array", PreferenceValue::Array{1, true, 2.5, "x", PreferenceValue::Array{},
                                       PreferenceValue::Bytes{9}}},
      {"dictionary",
       PreferenceDictionary{{"", 1},
                            {"nested", PreferenceDictionary{{"\u00e9", PreferenceValue::Date()}}}}},
      {std::string("key\0with NUL", 12), 1},
      {"", "the empty key"},
      {"\U0001F600 \uFFFF \xFF", 2},
  };
}

TEST_F(StoreTest, KeepsEveryTypeOnDisk) {
  {
    const auto store = open();
    for (const auto& [key, value] : everyType()) store->setObject(value, key);
    store->setObject(std::nan(""), "nan");
  }
  const auto store = open();
  EXPECT_TRUE(std::isnan(store->objectForKey("nan")->asReal().value_or(0)));
  EXPECT_TRUE(std::signbit(*store->objectForKey("negative zero")->asReal()));
  store->removeObject("nan");
  EXPECT_EQ(store->dictionaryRepresentation(), everyType());
  EXPECT_EQ(store->status(), std::nullopt);
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StoreTest, ReadsWithConversionsAndDefaults) {
  const auto store = open();
  store->setObject("12 points", "text");
  store->setBool(false, "off");
  EXPECT_EQ(store->integerForKey("text"), 12);
  EXPECT_EQ(store->integerForKey("absent"), 0);
  EXPECT_FALSE(store->boolForKey("absent"));
  EXPECT_EQ(store->stringForKey("absent"), std::nullopt);
  // Presence is told apart from the default.
  EXPECT_FALSE(store->objectForKey("absent"));
  EXPECT_EQ(store->objectForKey("off"), PreferenceValue(false));
  store->removeObject("off");
  store->removeObject("off");
  EXPECT_FALSE(store->objectForKey("off"));
  EXPECT_EQ(store->dictionaryRepresentation().size(), 1U);
}

TEST_F(StoreTest, ObserversHearOfEachChangeOnce) {
  const auto store = open();
  std::vector<std::string> heard;
  const Subscription one = store->observe("a", [&](std::string_view key) {
    heard.push_back("one " + std::string(key));
    // The write is over, and others may follow from here.
    if (store->integerForKey("a") == 1) store->setInteger(2, "a");
  });
  Subscription all =
      store->observeAll([&](std::string_view key) { heard.push_back("all " + std::string(key)); });
  store->setInteger(1, "a");
  EXPECT_THAT(heard, ElementsAre("one a", "one a", "all a", "all a"));
  heard.clear();
  store->setInteger(2, "a");  // the same value again
  store->setInteger(3, "b");
  store->removeObject("b");
  store->removeObject("b");
  EXPECT_THAT(heard, ElementsAre("all b", "all b"));
  heard.clear();
  all.cancel();
  store->setInteger(4, "b");
  store->setObject(4.0, "a");  // an equal number of another type
  EXPECT_THAT(heard, ElementsAre("one a"));
}

TEST_F(StoreTest, AppliesAllOrNothing) {
  const auto store = open();
  store->setInteger(1, "kept");
  PreferenceValue deep = 1;
  for (int i = 0; i < 600; ++i) deep = PreferenceValue::Array{deep};
  EXPECT_FALSE(store->applyAll({{"a", 1}, {"deep", deep}, {"kept", 2}}));
  EXPECT_EQ(store->dictionaryRepresentation(), (PreferenceDictionary{{"kept", 1}}));
  std::vector<std::string> heard;
  const Subscription all = store->observeAll([&](std::string_view key) {
    heard.emplace_back(key);
    EXPECT_EQ(store->dictionaryRepresentation().size(), 3U);
  });
  ASSERT_TRUE(store->applyAll({{"a", 1}, {"b", 2}, {"kept", 1}}));
  EXPECT_THAT(heard, UnorderedElementsAre("a", "b"));
}

TEST_F(StoreTest, RefusesADeepValueAndKeepsTheOldOne) {
  const auto store = open();
  store->setInteger(1, "key");
  PreferenceValue deep = 1;
  for (int i = 0; i < 600; ++i) deep = PreferenceValue::Array{deep};
  store->setObject(deep, "key");
  EXPECT_EQ(store->objectForKey("key"), PreferenceValue(1));
  ASSERT_TRUE(store->status());
  store->setInteger(2, "key");
  EXPECT_EQ(store->status(), std::nullopt);
}

TEST_F(StoreTest, SharesItsFileWithOtherStores) {
  const auto first = open();
  const auto second = open();
  std::vector<std::string> heard;
  const Subscription all =
      second->observeAll([&](std::string_view key) { heard.emplace_back(key); });
  first->setInteger(1, "a");
  EXPECT_EQ(second->integerForKey("a"), 1);
  EXPECT_THAT(heard, IsEmpty());
  ASSERT_TRUE(waitUntil([&] { return heard.size() == 1; }));
  second->setInteger(2, "a");
  second->setInteger(3, "b");
  EXPECT_EQ(first->integerForKey("a"), 2);
  first->removeObject("b");
  EXPECT_FALSE(second->objectForKey("b"));
  // No read: the change comes by itself.
  first->setInteger(9, "c");
  ASSERT_TRUE(waitUntil([&] { return !heard.empty() && heard.back() == "c"; }));
}

TEST_F(StoreTest, StoreInMemoryWritesNoFile) {
  const auto store = UserDefaults::inMemory();
  store->setInteger(1, "a");
  EXPECT_EQ(store->integerForKey("a"), 1);
  EXPECT_EQ(store->status(), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
}  // namespace foundation
