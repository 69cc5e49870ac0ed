#include "Support.hpp"
#include "Work.hpp"
#include "viewkit/Shape.hpp"

#include <gmock/gmock.h>

#include <memory>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
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

}  // namespace
}  // namespace viewkit
