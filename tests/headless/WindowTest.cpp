// SPDX-License-Identifier: MIT
#include "Form.hpp"
#include "support/ElementPrinting.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <string>

namespace headless {
namespace {

using namespace viewkit;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class HeadlessWindow : public testing::HeadlessTest {};

TEST_F(HeadlessWindow, FailedSearchListsWhatThereIs) {
  const auto window = showForm();
  EXPECT_THAT(
      window->find(Role::button, "Save").problem(),
      AllOf(HasSubstr("no button \"Save\""), HasSubstr("button \"Lock\", button \"Reset\"")));
  EXPECT_THAT(window->find(Role::button).problem(), HasSubstr("not one but 2"));
  EXPECT_THAT(window->find(Role::colorWell).problem(), HasSubstr("toggle \"Promiscuous\""));
  EXPECT_THAT(window->findText("nowhere").problem(), HasSubstr("nothing shows \"nowhere\""));
  EXPECT_THROW(window->find(Role::button, "Save").frame(), NoSuchElement);
  EXPECT_THROW(window->click(window->find(Role::button, "Save")), NoSuchElement);
}

TEST_F(HeadlessWindow, ElementOfARemovedViewSaysThatItIsGone) {
  struct Disappearing {
    State<bool> isShown = true;
    View body() const {
      return isShown ? Button("Hide", [self = *this] { self.isShown.set(false); })
                     : View(Text("hidden"));
    }
  };
  const auto window = show(Disappearing{});
  const Element button = window->find(Role::button, "Hide");
  ASSERT_TRUE(window->click(button));
  EXPECT_FALSE(button.exists());
  EXPECT_THAT(button.problem(), HasSubstr("no longer"));
  EXPECT_TRUE(window->findText("hidden").exists());
}

TEST_F(HeadlessWindow, ClickOperatesAControlUnlessItIsDisabled) {
  const auto window = showForm();
  const Element toggle = window->find(Role::toggle, "Promiscuous");
  EXPECT_TRUE(window->click(toggle));
  EXPECT_TRUE(std::get<ToggleControl>(*toggle.content().control()).isOn);

  const Element reset = window->find(Role::button, "Reset");
  EXPECT_TRUE(window->click(reset));
  EXPECT_THAT(*journal, ElementsAre("reset"));
  window->click(window->find(Role::button, "Lock"));
  EXPECT_FALSE(reset.isEnabled());
  EXPECT_FALSE(window->click(reset));
  EXPECT_THAT(*journal, ElementsAre("reset"));
}

TEST_F(HeadlessWindow, MenuItemIsChosenByTitle) {
  const auto window = showForm();
  const Element menu = window->find(Role::menuButton);
  EXPECT_EQ(window->menuItems(menu).size(), 2U);
  EXPECT_TRUE(window->choose(menu, "UDP"));
  EXPECT_EQ(std::get<MenuControl>(*menu.content().control()).title, "UDP");
  try {
    window->choose(menu, "SCTP");
    ADD_FAILURE() << "chose an item that is not there";
  } catch (const NoSuchElement& problem) {
    EXPECT_THAT(problem.what(), HasSubstr("\"TCP\", \"UDP\""));
  }
}

TEST_F(HeadlessWindow, ClickOutsideOfControlsGoesToTheViewUnderIt) {
  const View root = Text("Row").frame(FixedFrame{.width = 100, .height = 30}).onTap([this] {
    journal->push_back("tapped");
  });
  const auto window = show(root);
  EXPECT_TRUE(window->click(window->findText("Row")));
  EXPECT_FALSE(window->click(Point{399, 399}));
  EXPECT_THAT(*journal, ElementsAre("tapped"));
}

TEST_F(HeadlessWindow, HoverEndsWhenThePointerLeavesTheWindow) {
  const View root =
      Text("Row").onHover([this](bool inside) { journal->push_back(inside ? "in" : "out"); });
  const auto window = show(root);
  window->hover(window->findText("Row"));
  window->settle();
  window->pointerLeft();
  EXPECT_THAT(*journal, ElementsAre("in", "out"));
}

enum class Page { first, second };

TEST_F(HeadlessWindow, TabIsSelectedByTitle) {
  struct Pages {
    State<Page> page = Page::first;
    View body() const {
      return TabView<Page>(page.binding(), {{Page::first, "General", "clock", Text("one")},
                                            {Page::second, "Fonts", "clock", Text("two")}});
    }
  };
  const auto window = show(Pages{});
  EXPECT_TRUE(window->findText("one").exists());
  window->selectTab("Fonts");
  EXPECT_TRUE(window->findText("two").exists());
  EXPECT_FALSE(window->findText("one").exists());
  window->press(Key::leftArrow);
  EXPECT_TRUE(window->findText("one").exists());
  EXPECT_THROW(window->selectTab("Sounds"), NoSuchElement);
}

TEST_F(HeadlessWindow, ClickScrollsTheElementIntoSight) {
  const View root =
      ScrollView({}, VStack({}, {
                                    Button("Top", [this] { journal->push_back("top"); }),
                                    RoundedRectangle().frame(FixedFrame{.height = 1000}),
                                    Button("Bottom", [this] { journal->push_back("bottom"); }),
                                }));
  const auto window = show(root);
  const Element bottom = window->find(Role::button, "Bottom");
  EXPECT_GT(bottom.frame().origin.y, window->size().height);
  EXPECT_TRUE(window->click(bottom));
  EXPECT_LE(bottom.frame().maxY(), window->size().height);
  EXPECT_THAT(*journal, ElementsAre("bottom"));

  const Element top = window->find(Role::button, "Top");
  EXPECT_LT(top.frame().origin.y, 0);
  window->scroll(bottom, -10000);
  EXPECT_GE(top.frame().origin.y, 0);
}

TEST_F(HeadlessWindow, EscapeAndAClickElsewhereCloseAPopover) {
  struct WithPopover {
    State<bool> isShown = false;
    View body() const {
      return VStack({},
                    {Button("Details", [self = *this] { self.isShown.set(true); })
                         .popover(isShown.binding(), [] { return View(Text("All the details")); }),
                     Text("Elsewhere")});
    }
  };
  const auto window = show(WithPopover{});
  const auto isOpen = [&] { return window->findText("All the details").exists(); };
  window->click(window->find(Role::button, "Details"));
  EXPECT_TRUE(isOpen());
  window->click(window->findText("All the details"));
  EXPECT_TRUE(isOpen());
  window->press(Key::escape);
  EXPECT_FALSE(isOpen());
  window->click(window->find(Role::button, "Details"));
  window->click(window->findText("Elsewhere"));
  EXPECT_FALSE(isOpen());
}

struct Fading {
  State<bool> isShown = false;
  View body() const {
    return VStack(
        {}, {Button("Show", [self = *this] { withAnimation([&] { self.isShown.set(true); }); }),
             isShown ? View(Text("Now")) : View{}});
  }
};

TEST_F(HeadlessWindow, AnimationEndsAtOnceUnlessItIsStepped) {
  const auto window = show(Fading{});
  window->click(window->find(Role::button, "Show"));
  EXPECT_EQ(window->findText("Now").content().opacity, 1);

  const auto stepped = show(Fading{}, {.size = {{400, 400}}, .stepsAnimations = true});
  stepped->click(stepped->find(Role::button, "Show"));
  EXPECT_EQ(stepped->findText("Now").content().opacity, 0);
  stepped->advance(kDefaultAnimationDuration / 2);
  EXPECT_NEAR(stepped->findText("Now").content().opacity, 0.5, 0.01);
  stepped->advance(kDefaultAnimationDuration);
  EXPECT_EQ(stepped->findText("Now").content().opacity, 1);
}

TEST_F(HeadlessWindow, SizeIsThatOfTheRootViewUnlessGiven) {
  const View root = RoundedRectangle().frame(FixedFrame{.width = 123, .height = 45});
  EXPECT_EQ(show(root, {})->size(), (Size{123, 45}));
  const auto window = show(root, {.size = {{300, 200}}});
  window->setSize({500, 100});
  EXPECT_EQ(window->describe().frame.size, (Size{500, 100}));
}

}  // namespace
}  // namespace headless
