// SPDX-License-Identifier: MIT
#include "Counter.hpp"
#include "Support.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using testing::Counter;
using ::testing::ElementsAre;
using testing::Flagged;
using ::testing::HasSubstr;
using testing::Log;
using testing::logged;
using testing::Switch;
using testing::titles;

TEST(Identity, StateFollowsTheIdOfAReorderedChild) {
  const auto control = std::make_shared<Switch>();
  const auto list = [](bool reversed) -> View {
    const std::vector<std::string> names = reversed ? std::vector<std::string>{"c", "b", "new", "a"}
                                                    : std::vector<std::string>{"a", "b", "c"};
    return VStack({}, {View(), forEach(
                                   names, [](const std::string& name) { return name; },
                                   [](const std::string& name) { return Counter{name}; })});
  };
  headless::Window window = testing::open(Flagged{list, control});
  window.click(window.find(Role::button, "a 0"));
  window.click(window.find(Role::button, "c 0"));
  window.click(window.find(Role::button, "c 1"));
  control->set(true);
  window.settle();
  EXPECT_EQ(titles(window), "c 2,b 0,new 0,a 1,");
}

TEST(Identity, ChildInsertedBeforeKeepsTheStateOfTheNext) {
  const auto control = std::make_shared<Switch>();
  headless::Window window = testing::open(
      Flagged{[](bool more) -> View {
                return VStack({}, {more ? View(Counter{"first"}) : View(), Counter{"second"}});
              },
              control});
  window.click(window.find(Role::button, "second 0"));
  control->set(true);
  window.settle();
  EXPECT_EQ(titles(window), "first 0,second 1,");
}

TEST(Identity, NewIdResetsTheState) {
  const auto control = std::make_shared<Switch>();
  headless::Window window = testing::open(
      Flagged{[](bool other) { return View(Counter{"it"}).id(other ? 2 : 1); }, control});
  window.click(window.find(Role::button));
  control->set(true);
  window.settle();
  EXPECT_EQ(titles(window), "it 0,");
}

TEST(Identity, EachAppearanceIsFollowedByOneDisappearance) {
  const auto log = std::make_shared<Log>();
  const auto control = std::make_shared<Switch>();
  const auto inner = std::make_shared<Switch>();
  {
    headless::Window window = testing::open(
        Flagged{[=](bool gone) -> View {
                  if (gone) return Text("other");
                  return logged(VStack({}, {logged(Text("a"), "a", log),
                                            Flagged{[=](bool b) {
                                                      return b ? logged(Text("b"), "b", log)
                                                               : logged(Counter{"c"}, "c", log);
                                                    },
                                                    inner}}),
                                "outer", log);
                },
                control});
    EXPECT_THAT(*log, ElementsAre("+a", "+c", "+outer"));
    log->clear();
    inner->set(true);
    control->set(true);
    window.settle();
    EXPECT_EQ(log->size() % 2, 1U);
    control->set(false);
    window.settle();
  }
  // Whatever came went, each after it came.
  std::map<std::string, int> present{{"a", 1}, {"c", 1}, {"outer", 1}};
  for (const std::string& entry : *log) {
    present[entry.substr(1)] += entry[0] == '+' ? 1 : -1;
    EXPECT_GE(present[entry.substr(1)], 0) << entry;
    EXPECT_LE(present[entry.substr(1)], 1) << entry;
  }
  for (const auto& [name, count] : present) EXPECT_EQ(count, 0) << name;
}

TEST(Identity, HostDestroyedBeforeItsFirstUpdateStillPairsAppearances) {
  const auto log = std::make_shared<Log>();
  {
    const headless::Metrics metrics;
    const ViewHost host(logged(Text("a"), "a", log), {.defaultStore = testing::store()}, metrics);
  }
  EXPECT_THAT(*log, ElementsAre("+a", "-a"));
}

TEST(Identity, ChildrenWithTheSameIdAreReportedAndToldApartByPosition) {
  ::testing::internal::CaptureStderr();
  const std::vector<int> twins{1, 1, 2};
  const headless::Window window =
      testing::open(VStack({}, {forEach(
                                   twins, [](int i) { return i; },
                                   [](int i) { return Text("row " + std::to_string(i)); })}));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("have the id 1"));
  EXPECT_EQ(window.findAll(Role::text).size(), 3U);
}

#ifndef NDEBUG
TEST(IdentityDeathTest, StateOutsideOfAViewStopsADebugBuild) {
  const State<int> loose = 0;
  EXPECT_DEATH(static_cast<void>(loose.get()), "State is used outside of the view");
}
#endif

}  // namespace
}  // namespace viewkit
