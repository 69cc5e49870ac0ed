// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/LazyVStack.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>

namespace viewkit {
namespace {

struct Row {
  std::size_t index;
  double height;
  View body() const {
    return Text("row " + std::to_string(index)).frame({.width = 100, .height = height});
  }
};

struct List {
  std::size_t count;
  std::function<double(std::size_t)> height = [](std::size_t) { return 20.0; };
  std::shared_ptr<std::function<void(ViewId)>> scrollTo =
      std::make_shared<std::function<void(ViewId)>>();

  View body() const {
    return ScrollViewReader([self = *this](const ScrollProxy& proxy) {
      *self.scrollTo = [proxy](ViewId id) { proxy.scrollTo(std::move(id)); };
      return ScrollView({}, LazyVStack({.spacing = 2},
                                       {.count = self.count, .row = [self](std::size_t i) -> View {
                                          return Row{i, self.height(i)};
                                        }}));
    });
  }
};

std::size_t rowsBuilt(const headless::Window& window) { return window.findAll(Role::text).size(); }

const ScrollControl& scrolled(const headless::Window& window) {
  return std::get<ScrollControl>(*window.find(Role::scrollArea).content().control());
}

TEST(LazyVStack, WorkDoesNotDependOnTheNumberOfRows) {
  PassCounters first;
  for (const std::size_t count : {100U, 10000U}) {
    headless::Window window = testing::open(List{.count = count}, {120, 220});
    EXPECT_LE(rowsBuilt(window), 14U);
    EXPECT_EQ(scrolled(window).contentSize.height, static_cast<double>(count) * 22 - 2);
    window.host().counters() = {};
    window.scroll(window.find(Role::scrollArea), 110);
    EXPECT_EQ(scrolled(window).offset.y, 110);
    EXPECT_LE(rowsBuilt(window), 17U);
    if (count == 100) {
      first = window.host().counters();
    } else {
      EXPECT_EQ(window.host().counters().bodiesRun, first.bodiesRun);
      EXPECT_EQ(window.host().counters().nodesLaidOut, first.nodesLaidOut);
    }
    EXPECT_EQ(window.findText("row 5").frame().origin.y, 2);
  }
}

TEST(Scroll, RowThatWasNeverBuiltIsScrolledIntoSight) {
  const List list{.count = 10000,
                  .height = [](std::size_t i) { return 20.0 + static_cast<double>(i % 7) * 5; }};
  headless::Window window = testing::open(list, {120, 220});
  for (const std::int64_t row : {9999, 0, 5000, 5003, 1}) {
    (*list.scrollTo)(row);
    window.settle();
    const headless::Element text = window.findText("row " + std::to_string(row));
    ASSERT_TRUE(text.exists()) << text.problem();
    EXPECT_GE(text.frame().origin.y, 0);
    EXPECT_LE(text.frame().maxY(), 220);
  }
}

TEST(Scroll, RowIsScrolledIntoSightByTheLeastDistance) {
  const List list{.count = 100};
  headless::Window window = testing::open(list, {120, 220});
  (*list.scrollTo)(std::int64_t{12});
  window.settle();
  EXPECT_EQ(scrolled(window).offset.y, 12 * 22 + 20 - 220);
  (*list.scrollTo)(std::int64_t{10});
  window.settle();
  EXPECT_EQ(scrolled(window).offset.y, 12 * 22 + 20 - 220);
}

TEST(LazyVStack, MeasuringRowsAboveDoesNotMoveTheRowsInSight) {
  const List list{.count = 1000, .height = [](std::size_t i) { return i < 500 ? 60.0 : 20.0; }};
  headless::Window window = testing::open(list, {120, 220});
  (*list.scrollTo)(std::int64_t{700});
  window.settle();
  double before = window.findText("row 700").frame().origin.y;
  for (int i = 0; i < 5; ++i) {
    window.scroll(window.find(Role::scrollArea), -10);
    const headless::Element row = window.findText("row 700");
    if (!row.exists()) break;
    EXPECT_NEAR(row.frame().origin.y, before + 10, 1);
    before = row.frame().origin.y;
  }
}

TEST(LazyVStack, FewerRowsMoveTheOffsetBackIntoBounds) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(
      testing::Flagged{[](bool few) -> View { return List{.count = few ? 3U : 1000U}; }, control},
      {120, 220});
  window.scroll(window.find(Role::scrollArea), 5000);
  control->set(true);
  window.settle();
  EXPECT_EQ(rowsBuilt(window), 3U);
  EXPECT_EQ(scrolled(window).offset.y, 0);
  control->set(false);
  window.settle();
  EXPECT_TRUE(window.findText("row 4").exists());
}

TEST(ScrollView, OffsetStaysWithinTheContent) {
  headless::Window window = testing::open(
      ScrollView({}, RoundedRectangle().frame({.width = 50, .height = 500})), {100, 200});
  window.scroll(window.find(Role::scrollArea), 1000);
  EXPECT_EQ(scrolled(window).offset.y, 300);
  window.setSize({100, 400});
  EXPECT_EQ(scrolled(window).offset.y, 100);
  window.scroll(window.find(Role::scrollArea), -1000);
  EXPECT_EQ(scrolled(window).offset.y, 0);
}

TEST(Scroll, RevealScrollsEveryScrollViewAroundTheNode) {
  const View inner =
      ScrollView({}, VStack({.spacing = 0},
                            {RoundedRectangle().frame({.width = 50, .height = 300}), Text("deep")}))
          .frame({.height = 100});
  headless::Window window = testing::open(
      ScrollView({}, VStack({.spacing = 0},
                            {RoundedRectangle().frame({.width = 50, .height = 300}), inner})),
      {100, 200});
  window.host().reveal(window.findText("deep").id());
  window.settle();
  const Rect frame = window.findText("deep").frame();
  EXPECT_GE(frame.origin.y, 0);
  EXPECT_LE(frame.maxY(), 200);
}

TEST(Scroll, RevealShowsTheStartOfANodeThatIsLargerThanTheView) {
  headless::Window window = testing::open(
      ScrollView({}, VStack({.spacing = 0}, {RoundedRectangle().frame({.width = 50, .height = 300}),
                                             VStack({}, {Text("inside")})
                                                 .frame({.width = 50, .height = 400})
                                                 .accessibilityRole(Role::group)})),
      {100, 200});
  window.host().reveal(window.find(Role::group).id());
  window.settle();
  EXPECT_EQ(window.find(Role::group).frame().origin.y, 0);
}

TEST(Scroll, ProxyDoesNothingAfterItsReaderIsGone) {
  const List list{.count = 10};
  { const headless::Window window = testing::open(list); }
  (*list.scrollTo)(std::int64_t{3});
}

TEST(Scroll, RootViewLargerThanTheWindowScrollsInBothDirections) {
  const View corners = VStack({.alignment = HorizontalAlignment::trailing, .spacing = 0},
                              {Text("first").onTap([] {}), Spacer(), Text("last").onTap([] {})})
                           .frame(FixedFrame{.width = 300, .height = 500});
  headless::Window window = testing::open(corners, {200, 220});
  EXPECT_GT(window.findText("last").frame().origin.y, 220);
  EXPECT_TRUE(window.click(window.findText("last")));
  EXPECT_LE(window.findText("last").frame().maxY(), 220);
  EXPECT_LE(window.findText("last").frame().maxX(), 200);
  window.setSize({400, 600});
  EXPECT_EQ(window.findText("last").frame().maxY(), 500) << "what fits does not scroll";
}

}  // namespace
}  // namespace viewkit
