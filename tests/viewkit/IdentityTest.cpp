#include "Support.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/TabView.hpp"

#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using testing::Flagged;
using testing::Switch;

using Log = std::vector<std::string>;

View logged(const View& content, const std::string& name, const std::shared_ptr<Log>& log) {
  return content.onAppear([name, log] { log->push_back("+" + name); }).onDisappear([name, log] {
    log->push_back("-" + name);
  });
}

// Counts its own clicks: state that can be seen.
struct Counter {
  std::string name;
  State<int> count = 0;

  View body() const {
    return Button(name + " " + std::to_string(count),
                  [self = *this] { self.count.set(self.count + 1); });
  }
};

std::string titles(const headless::Window& window) {
  std::string all;
  for (const headless::Element& button : window.findAll(Role::button)) all += button.label() + ",";
  return all;
}

TEST(Identity, StateFollowsTheIdAndNotThePosition) {
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

TEST(Identity, WhatStandsInOnePlaceDoesNotDisturbTheOthers) {
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

TEST(Identity, ANewIdIsANewView) {
  const auto control = std::make_shared<Switch>();
  headless::Window window = testing::open(
      Flagged{[](bool other) { return View(Counter{"it"}).id(other ? 2 : 1); }, control});
  window.click(window.find(Role::button));
  control->set(true);
  window.settle();
  EXPECT_EQ(titles(window), "it 0,");
}

TEST(Identity, AppearancesPairUpWhateverGoes) {
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

TEST(Identity, WhatIsNeverUpdatedStillPairsUp) {
  const auto log = std::make_shared<Log>();
  {
    const headless::Metrics metrics;
    const ViewHost host(logged(Text("a"), "a", log), {.defaultStore = testing::store()}, metrics);
  }
  EXPECT_THAT(*log, ElementsAre("+a", "-a"));
}

enum class Page { first, second, third };

struct Pages {
  std::shared_ptr<Log> log;
  bool withSecond = true;
  State<Page> page = Page::first;

  View body() const {
    std::vector<Tab<Page>> tabs{
        {Page::first, "First", "clock", logged(Counter{"one"}, "one", log)}};
    if (withSecond)
      tabs.push_back({Page::second, "Second", "cpu", logged(Counter{"two"}, "two", log)});
    tabs.push_back({Page::third, "Third", "bolt", logged(Text("three"), "three", log)});
    return TabView(page.binding(), std::move(tabs));
  }
};

TEST(TabView, KeepsPagesAndTheirStateButShowsOne) {
  const auto log = std::make_shared<Log>();
  {
    headless::Window window = testing::open(Pages{log});
    EXPECT_THAT(*log, ElementsAre("+one"));
    window.click(window.find(Role::button, "one 0"));
    window.selectTab("Second");
    EXPECT_EQ(titles(window), "two 0,");
    window.selectTab("Second");
    window.selectTab("First");
    EXPECT_EQ(titles(window), "one 1,");
    EXPECT_THAT(*log, ElementsAre("+one", "-one", "+two", "-two", "+one"));
    log->clear();
  }
  EXPECT_THAT(*log, ElementsAre("-one"));
}

TEST(TabView, ShowsTheFirstPageWhereTheSelectedOneIsMissing) {
  const auto log = std::make_shared<Log>();
  headless::Window window =
      testing::open(Pages{.log = log, .withSecond = false, .page = Page::second});
  EXPECT_EQ(titles(window), "one 0,");
  EXPECT_EQ(std::get<TabBarControl>(*window.find(Role::tabList).content().control()).selected, 0);
  window.selectTab("Third");
  EXPECT_TRUE(window.findText("three").exists());
}

TEST(TabView, HeaderComesAndGoesAboveTheBarWhileThePageKeepsItsState) {
  struct WithHeader {
    State<Page> page = Page::first;
    StoredPreference<std::string> header{"tab_view_header", ""};
    View body() const {
      const std::string text = header;
      return TabView(page.binding(),
                     std::vector<Tab<Page>>{{Page::first, "First", "clock", Counter{"one"}}},
                     text.empty() ? View() : Text(text));
    }
  };
  headless::Window window = testing::open(WithHeader{});
  const auto bar = window.find(Role::tabList);
  const double top = bar.frame().origin.y;
  window.click(window.find(Role::button, "one 0"));
  testing::store().setObject("above", "tab_view_header");
  window.settle();
  EXPECT_EQ(window.findText("above").frame().origin.y, top);
  EXPECT_EQ(bar.frame().origin.y, top + window.findText("above").frame().size.height + 8);
  EXPECT_EQ(titles(window), "one 1,");
  testing::store().removeObject("tab_view_header");
  window.settle();
  EXPECT_EQ(bar.frame().origin.y, top);
  EXPECT_EQ(titles(window), "one 1,");
}

TEST(TabView, HiddenPagesSleepAndWakeUpToDate) {
  struct Reader {
    StoredPreference<std::string> text{"hidden_page_text", "none"};
    View body() const { return Text(text); }
  };
  struct TwoPages {
    State<Page> page = Page::first;
    View body() const {
      return TabView(page.binding(),
                     std::vector<Tab<Page>>{{Page::first, "First", "clock", Reader{}},
                                            {Page::second, "Second", "cpu", Text("x")}});
    }
  };
  headless::Window window = testing::open(TwoPages{});
  window.selectTab("Second");
  window.host().counters() = {};
  testing::store().setObject("new", "hidden_page_text");
  window.settle();
  EXPECT_EQ(window.host().counters().bodiesRun, 0U);
  window.selectTab("First");
  EXPECT_TRUE(window.findText("new").exists());
}

}  // namespace
}  // namespace viewkit
