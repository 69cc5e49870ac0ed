// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using namespace std::chrono_literals;

headless::Window openStepped(const View& root, bool reducedMotion = false) {
  return {root,
          Environment{.defaultStore = testing::store(), .reducedMotion = reducedMotion},
          {.size = {{200, 100}}, .stepsAnimations = true}};
}

View swapping(const std::shared_ptr<testing::Switch>& control) {
  return testing::Flagged{
      [](bool other) { return other ? View(Text("new").id(2)) : View(Text("old").id(1)); },
      control};
}

TEST(Animation, NewViewFadesInAndAPictureOfTheOldOneFadesOut) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = openStepped(swapping(control));
  withAnimation([&] { control->set(true); });
  window.settle();
  ASSERT_TRUE(window.host().isAnimating());
  EXPECT_EQ(window.findText("new").content().opacity, 0);
  EXPECT_FALSE(window.findText("old").exists());
  const auto& children = window.host().presentation().children;
  ASSERT_EQ(children.size(), 2U);
  const PresentationNode* picture = children[1];
  EXPECT_EQ(picture->id, 0U);
  EXPECT_EQ(std::get<TextVisual>(picture->content).text, "old");
  window.advance(125ms);
  EXPECT_NEAR(window.findText("new").content().opacity, 0.5, 0.01);
  EXPECT_NEAR(picture->opacity, 0.5, 0.01);
  window.advance(125ms);
  EXPECT_EQ(window.findText("new").content().opacity, 1);
  EXPECT_FALSE(window.host().isAnimating());
  EXPECT_EQ(window.host().presentation().children.size(), 1U);
}

TEST(Animation, NoFadeWithReducedMotionOrOutsideOfWithAnimation) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window reduced = openStepped(swapping(control), true);
  withAnimation([&] { control->set(true); });
  reduced.settle();
  EXPECT_FALSE(reduced.host().isAnimating());
  EXPECT_EQ(reduced.findText("new").content().opacity, 1);

  headless::Window plain = openStepped(swapping(control));
  control->set(true);
  plain.settle();
  EXPECT_FALSE(plain.host().isAnimating());
}

TEST(Animation, ViewWithAnOpacityTransitionAlsoFadesOut) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = openStepped(testing::Flagged{
      [](bool gone) { return gone ? View() : Text("page").opacityTransition(); }, control});
  window.host().finishAnimations();
  control->set(true);
  window.settle();
  EXPECT_FALSE(window.findText("page").exists());
  ASSERT_TRUE(window.host().isAnimating());
  ASSERT_EQ(window.host().presentation().children.size(), 1U);
  window.advance(125ms);
  EXPECT_NEAR(window.host().presentation().children.front()->opacity, 0.5, 0.01);
  window.advance(125ms);
  EXPECT_TRUE(window.host().presentation().children.empty());
}

// A row whose label goes when it is told to; the row itself goes, with an animation, right after.
struct GoingRow {
  State<bool> hasLabel = true;
  State<bool> isThere = true;
  std::function<void()>* removeLabel;

  View body() const {
    *removeLabel = [self = *this] { self.hasLabel.set(false); };
    const View label = hasLabel ? Text("a label that is too long for a short string") : View();
    const View row = VStack({}, {label, Text("text")})
                         .opacity(0.5)
                         .onChange<bool>(hasLabel, [self = *this](bool) {
                           withAnimation([&] { self.isThere.set(false); });
                         });
    return isThere ? row : View(Text("rest"));
  }
};

TEST(Animation, RowFadesOutAfterAPartOfItWentInTheSameUpdate) {
  std::function<void()> removeLabel;
  headless::Window window = openStepped(View(GoingRow{.removeLabel = &removeLabel}));
  removeLabel();
  window.settle();
  ASSERT_TRUE(window.host().isAnimating());
  std::vector<std::string> pictures;
  const std::function<void(const PresentationNode&)> visit = [&](const PresentationNode& node) {
    const auto* text = std::get_if<TextVisual>(&node.content);
    if (node.id == 0 && text) pictures.push_back(text->text);
    for (const PresentationNode* child : node.children) visit(*child);
  };
  visit(window.host().presentation());
  EXPECT_THAT(pictures, ::testing::ElementsAre("text"));
}

TEST(Animation, ViewMayBeRemovedWhileItFades) {
  const auto control = std::make_shared<testing::Switch>();
  const auto outer = std::make_shared<testing::Switch>();
  headless::Window window =
      openStepped(testing::Flagged{[&](bool gone) {
                                     return gone ? View(Text("rest"))
                                                 : VStack({}, {swapping(control).opacity(0.5)});
                                   },
                                   outer});
  withAnimation([&] { control->set(true); });
  window.settle();
  withAnimation([&] { control->set(false); });
  window.settle();
  window.advance(50ms);
  outer->set(true);
  window.settle();
  window.host().finishAnimations();
  EXPECT_FALSE(window.host().isAnimating());
  EXPECT_EQ(window.host().presentation().children.size(), 1U);
}

TEST(Animation, OpacityTransitionFadesInWhenFirstShown) {
  headless::Window window = openStepped(Text("root").opacityTransition());
  EXPECT_TRUE(window.host().isAnimating());
  window.host().finishAnimations();
  EXPECT_EQ(window.host().presentation().children.front()->opacity, 1);
}

}  // namespace
}  // namespace viewkit
