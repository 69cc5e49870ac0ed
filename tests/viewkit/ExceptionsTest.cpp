// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/ErrorBoundary.hpp"
#include "viewkit/Stacks.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace viewkit {
namespace {

View fragile(const std::shared_ptr<testing::Switch>& control) {
  return testing::Flagged{[](bool breaks) -> View {
                            if (breaks) throw std::runtime_error("broken");
                            return Text("whole");
                          },
                          control};
}

TEST(Exceptions, LaterUpdateWorksAfterABodyHasThrown) {
  const auto first = std::make_shared<testing::Switch>();
  const auto second = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(
      VStack({}, {fragile(first),
                  testing::Flagged{[](bool other) { return Text(other ? "changed" : "as it was"); },
                                   second}}));
  first->set(true);
  EXPECT_THROW(window.settle(), std::runtime_error);
  second->set(true);
  window.settle();
  EXPECT_TRUE(window.findText("changed").exists());
  first->set(false);
  window.settle();
  EXPECT_TRUE(window.findText("whole").exists());
}

TEST(Exceptions, WithAnimationEndsWhenItsArgumentThrows) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window{
      testing::Flagged{
          [](bool other) { return other ? View(Text("new").id(2)) : View(Text("old").id(1)); },
          control},
      Environment{.defaultStore = testing::store()},
      {.size = {{200, 100}}, .stepsAnimations = true}};
  EXPECT_THROW(withAnimation([] { throw std::runtime_error("broken"); }), std::runtime_error);
  control->set(true);
  window.settle();
  EXPECT_FALSE(window.host().isAnimating());
}

TEST(Exceptions, BoundaryReplacesABodyThatThrows) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(
      VStack({}, {Text("beside"),
                  errorBoundary(fragile(control), [](const std::exception_ptr& thrown) -> View {
                    try {
                      std::rethrow_exception(thrown);
                    } catch (const std::runtime_error& error) {
                      return Text(error.what());
                    }
                  })}));
  control->set(true);
  window.settle();
  EXPECT_TRUE(window.findText("broken").exists());
  EXPECT_TRUE(window.findText("beside").exists());
  control->set(false);
  window.settle();
  EXPECT_TRUE(window.findText("whole").exists());
  EXPECT_FALSE(window.findText("broken").exists());
}

}  // namespace
}  // namespace viewkit
