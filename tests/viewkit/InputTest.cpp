// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "foundation/MainQueue.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;

TEST(Input, ClickGoesToTheInnermostRegion) {
  std::vector<std::string> log;
  headless::Window window =
      testing::open(HStack({.spacing = 0}, {Text("inner").onTap([&] { log.emplace_back("inner"); }),
                                            Text("beside")})
                        .onTap([&] { log.emplace_back("outer"); }));
  window.click(window.findText("inner"));
  window.click(window.findText("beside"));
  EXPECT_THAT(log, ElementsAre("inner", "outer"));
}

TEST(Input, PointerLeavesAViewThatIsRemovedUnderIt) {
  std::vector<bool> told;
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool gone) {
        return gone ? View(Text("other"))
                    : Text("hovered").onHover([&](bool inside) { told.push_back(inside); });
      },
      control});
  window.movePointer({5, 5});
  control->set(true);
  window.settle();
  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST(Input, RegionThatMovesAwayFromThePointerDoesNotLoop) {
  struct Fleeing {
    State<bool> away = false;
    View body() const {
      return Text("flee")
          .onHover([self = *this](bool inside) { self.away.set(inside); })
          .padding(Edges::leading, away ? 300 : 0);
    }
  };
  headless::Window window = testing::open(Fleeing{});
  window.movePointer({5, 5});
  EXPECT_FALSE(foundation::MainQueue::mainQueue().drain());
}

}  // namespace
}  // namespace viewkit
