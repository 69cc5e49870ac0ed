// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/Grid.hpp"
#include "viewkit/GroupBox.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <vector>

namespace viewkit {
namespace {

// A box of a fixed size. Fixtures compare its frame in the window.
View box(double width, double height) {
  return RoundedRectangle().frame({.width = width, .height = height});
}

// A box that takes all the space that it is proposed.
View filler() { return RoundedRectangle(); }

struct Fixture {
  const char* name;
  View root;
  // Of every rounded rectangle and text, in the order of painting.
  std::vector<Rect> frames;
};

void collect(const NodeDescription& node, std::vector<Rect>& into) {
  if (node.kind == "RoundedRectangle" || node.kind == "Text") into.push_back(node.frame);
  for (const NodeDescription& child : node.children) collect(child, into);
}

// In a window of 400 by 300. A character of fixed pitch is 6 points wide and a line 13 high at 10
// points, its baseline at 10.
Text fixed(const std::string& text) {
  return Text(text).font(Font::of({.family = "Monospace", .style = "", .pointSize = 10}));
}

std::vector<Fixture> stacks() {
  return {
      {"a stack gives what is left to what can take it",
       HStack({.spacing = 10}, {box(50, 20), filler(), box(40, 30)}),
       {{{0, 140}, {50, 20}}, {{60, 0}, {290, 300}}, {{360, 135}, {40, 30}}}},
      {"two that can take anything share alike",
       HStack({.spacing = 0}, {filler(), filler(), box(100, 10)}),
       {{{0, 0}, {150, 300}}, {{150, 0}, {150, 300}}, {{300, 145}, {100, 10}}}},
      {"a spacer keeps its least length and takes none across",
       VStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
              {box(20, 280), Spacer(30), box(10, 10)}),
       {{{0, 0}, {20, 280}}, {{0, 310}, {10, 10}}}},
      {"a spacer inside a modifier still knows its stack",
       HStack({.spacing = 0}, {box(20, 10), Spacer(0).id("gap"), box(30, 10)}),
       {{{0, 0}, {20, 10}}, {{370, 0}, {30, 10}}}},
      {"alignment across a stack",
       VStack({.alignment = HorizontalAlignment::trailing, .spacing = 5},
              {box(100, 10), box(40, 10)}),
       {{{0, 0}, {100, 10}}, {{60, 15}, {40, 10}}}},
      {"texts stand on one line",
       HStack({.alignment = VerticalAlignment::firstTextBaseline, .spacing = 0},
              {fixed("ab"),
               Text("A").font(Font::of({.family = "Monospace", .style = "", .pointSize = 20})),
               box(10, 10)}),
       {{{0, 9}, {12, 13}}, {{12, 0}, {12, 24}}, {{24, 9}, {10, 10}}}},
      {"a text gives way before it is pushed out",
       HStack({.spacing = 0}, {fixed("aaaa bbbb"), box(370, 10)}),
       {{{0, 0}, {24, 26}}, {{24, 8}, {370, 10}}}},
  };
}

std::vector<Fixture> modifiers() {
  return {
      {"padding before a background lies inside of it",
       box(10, 10).padding(5).background(filler()).padding(Edges::leading, 7),
       {{{7, 0}, {20, 20}}, {{12, 5}, {10, 10}}}},
      {"an overlay is placed within the view and changes nothing about it",
       box(100, 50).overlay(box(10, 10), Alignment::topLeading()).padding(1),
       {{{1, 1}, {100, 50}}, {{1, 1}, {10, 10}}}},
      {"a function is applied as a modifier",
       box(10, 10).modifier([](const View& view) { return view.padding(Edges::leading, 7); }),
       {{{7, 0}, {10, 10}}}},
      {"a frame centres what is smaller",
       box(10, 10).frame({.width = 100, .height = 40}),
       {{{45, 15}, {10, 10}}}},
      {"a frame without limit takes all the width",
       box(10, 10).frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::trailing()}),
       {{{390, 0}, {10, 10}}}},
      {"a least height that the content exceeds is not seen",
       VStack({.spacing = 0},
              {box(10, 50).frame(FlexibleFrame{.minHeight = 20}),
               box(10, 5).frame(FlexibleFrame{.minHeight = 20, .alignment = Alignment::top()}),
               box(10, 5)}),
       {{{0, 0}, {10, 50}}, {{0, 50}, {10, 5}}, {{0, 70}, {10, 5}}}},
      {"fixed size ignores what is offered",
       fixed("aaaa bbbb").fixedSize().frame({.width = 30}),
       {{{-12, 0}, {54, 13}}}},
  };
}

std::vector<Fixture> otherContainers() {
  return {
      {"children one over the other",
       ZStack(Alignment::topLeading(), {box(100, 20), box(10, 60)}),
       {{{0, 0}, {100, 20}}, {{0, 0}, {10, 60}}}},
      {"nothing takes no space, and no spacing either",
       VStack({.spacing = 10}, {box(10, 10), View(), box(10, 10)}),
       {{{0, 0}, {10, 10}}, {{0, 20}, {10, 10}}}},
      {"a grid's columns are as wide as their widest cells",
       Grid({.horizontalAlignment = HorizontalAlignment::leading,
             .verticalAlignment = VerticalAlignment::top,
             .horizontalSpacing = 10,
             .verticalSpacing = 5},
            {{.cells = {box(30, 10), box(10, 20)}},
             {.cells = {box(50, 10), box(20, 10)}, .verticalPadding = 3}}),
       {{{0, 0}, {30, 10}}, {{60, 0}, {10, 20}}, {{0, 28}, {50, 10}}, {{60, 28}, {20, 10}}}},
      {"a grid gives spare width to the column that can use it",
       Grid({.horizontalSpacing = 0, .verticalSpacing = 0},
            {{.cells = {box(30, 10),
                        box(10, 10).frame(FlexibleFrame{.minWidth = 20, .maxWidth = kUnlimited}),
                        box(70, 10)}}}),
       {{{0, 0}, {30, 10}}, {{175, 0}, {10, 10}}, {{330, 0}, {70, 10}}}},
      {"a scroll view takes the height that is left",
       VStack({.spacing = 0}, {box(10, 100), ScrollView({}, box(30, 900)), box(10, 50)}),
       {{{10, 0}, {10, 100}}, {{0, 100}, {30, 900}}, {{10, 250}, {10, 50}}}},
  };
}

TEST(Layout, EachFixtureIsPlacedAsExpected) {
  for (const auto& fixtures : {stacks(), modifiers(), otherContainers()}) {
    for (const Fixture& fixture : fixtures) {
      SCOPED_TRACE(fixture.name);
      const headless::Window window = testing::open(fixture.root);
      std::vector<Rect> frames;
      collect(window.describe(), frames);
      EXPECT_THAT(frames, ::testing::ElementsAreArray(fixture.frames));
    }
  }
}

TEST(Layout, HostReportsTheIdealSizeOfItsView) {
  const headless::Metrics metrics;
  ViewHost host(HStack({.spacing = 4}, {box(30, 10), Spacer(6), box(20, 40)}),
                {.defaultStore = testing::store()}, metrics);
  EXPECT_EQ(host.sizeThatFits({}), (Size{64, 40}));
}

TEST(Layout, LargerChildMovesTheNextOne) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      {testing::Flagged{[](bool tall) { return box(10, tall ? 50 : 20).padding(1); }, control},
       box(10, 10)}));
  control->set(true);
  window.settle();
  std::vector<Rect> frames;
  collect(window.describe(), frames);
  EXPECT_THAT(frames, ::testing::ElementsAre(Rect{{1, 1}, {10, 50}}, Rect{{0, 52}, {10, 10}}));
}

TEST(Layout, LargerChildOfAFixedFrameIsPlacedAgain) {
  const auto control = std::make_shared<testing::Switch>();
  const View flagged = testing::Flagged{[](bool wide) { return box(wide ? 30 : 10, 10); }, control};
  headless::Window window = testing::open(flagged.padding(2).frame({.width = 100, .height = 50}));
  control->set(true);
  window.settle();
  std::vector<Rect> frames;
  collect(window.describe(), frames);
  EXPECT_THAT(frames, ::testing::ElementsAre(Rect{{35, 20}, {30, 10}}));
}

TEST(Layout, ResizedWindowIsLaidOutAgain) {
  headless::Window window = testing::open(HStack({.spacing = 0}, {fixed("aa"), filler()}));
  for (double width = 390; width > 100; width -= 10) window.setSize({width, 50});
  std::vector<Rect> frames;
  collect(window.describe(), frames);
  EXPECT_THAT(frames, ::testing::ElementsAre(Rect{{0, 18}, {12, 13}}, Rect{{12, 0}, {98, 50}}));
}

}  // namespace
}  // namespace viewkit
