// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "Work.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <memory>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;
using testing::Work;

TEST(Present, DamageOfAMovedViewCoversItsOldAndItsNewFrame) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [](bool moved) {
        return RoundedRectangle()
            .fill(Color::accent())
            .frame({.width = 10, .height = 10})
            .padding(Edges::leading, moved ? 100 : 20)
            .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()});
      },
      control});
  const Work work(window);
  control->set(true);
  window.settle();
  EXPECT_THAT(work.damage(), ElementsAre(Rect{{20, 0}, {10, 10}}, Rect{{100, 0}, {10, 10}}));
}

TEST(Present, DamageLeavesOutFramesInsideOfOthersAlone) {
  const auto control = std::make_shared<testing::Switch>();
  const auto square = [](double length, bool isAccent) {
    return View(RoundedRectangle().fill(isAccent ? Color::accent() : Color::separator()))
        .frame({.width = length, .height = length});
  };
  headless::Window window = testing::open(testing::Flagged{
      [=](bool isAccent) {
        return HStack({.alignment = VerticalAlignment::bottom, .spacing = 0},
                      {square(10, isAccent), square(30, isAccent).overlay(square(10, isAccent)),
                       square(20, isAccent)});
      },
      control});
  const Work work(window);
  control->set(true);
  window.settle();
  EXPECT_THAT(work.damage(), UnorderedElementsAre(Rect{{0, 20}, {10, 10}}, Rect{{10, 0}, {30, 30}},
                                                  Rect{{40, 10}, {20, 20}}));
}

}  // namespace
}  // namespace viewkit
