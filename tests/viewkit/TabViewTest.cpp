// SPDX-License-Identifier: MIT
#include "Counter.hpp"
#include "Support.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/TabView.hpp"

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using testing::Counter;
using ::testing::ElementsAre;
using testing::Log;
using testing::logged;
using testing::titles;

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

TEST(TabView, HiddenPageKeepsItsState) {
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

TEST(TabView, MissingSelectionShowsTheFirstPage) {
  const auto log = std::make_shared<Log>();
  headless::Window window =
      testing::open(Pages{.log = log, .withSecond = false, .page = Page::second});
  EXPECT_EQ(titles(window), "one 0,");
  EXPECT_EQ(std::get<TabBarControl>(*window.find(Role::tabList).content().control()).selected, 0);
  window.selectTab("Third");
  EXPECT_TRUE(window.findText("three").exists());
}

TEST(TabView, HeaderThatComesAndGoesKeepsTheStateOfThePage) {
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

TEST(TabView, HiddenPageRunsNoBodyAndIsUpToDateWhenShownAgain) {
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
