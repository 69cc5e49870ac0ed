// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/ContextMenu.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

View withMenu(const View& content, const std::string& title, std::vector<std::string>& log) {
  return contextMenu(content, [title, &log] {
    return std::vector<MenuItem>{
        {.title = title + " off",
         .action = [&log] { log.emplace_back("off"); },
         .isEnabled = false},
        {.title = title, .action = [title, &log] { log.push_back(title); }}};
  });
}

TEST(ContextMenu, InnermostViewOpensItsOwnAndADisabledViewToo) {
  std::vector<std::string> log;
  headless::Window window = testing::open(
      VStack({}, {withMenu(HStack({}, {withMenu(Text("inner"), "of inner", log), Text("outer")}),
                           "of outer", log)
                      .disabled(true),
                  Text("none")}));
  EXPECT_TRUE(window.chooseFromContextMenu(window.findText("inner"), "of inner"));
  EXPECT_TRUE(window.chooseFromContextMenu(window.findText("outer"), "of outer"));
  EXPECT_FALSE(window.chooseFromContextMenu(window.findText("outer"), "of outer off"));
  EXPECT_THAT(log, ElementsAre("of inner", "of outer"));
  EXPECT_FALSE(window.openContextMenu(window.findText("none")));
  EXPECT_FALSE(window.host().hasContextMenu(window.findText("none").id()));
  EXPECT_TRUE(window.host().hasContextMenu(window.findText("inner").id()));
}

TEST(ContextMenu, KeysOpenItForTheFocusedControlAndSkipItemsThatCannotBePicked) {
  std::vector<std::string> log;
  headless::Window window = testing::open(
      VStack({}, {withMenu(Button("first", [] {}), "menu", log), Button("second", [] {})}));
  window.press(headless::Key::tab);
  window.press(headless::Key::menu);
  ASSERT_TRUE(window.isMenuOpen());
  window.press(headless::Key::downArrow);
  window.press(headless::Key::enter);
  EXPECT_THAT(log, ElementsAre("menu"));
  window.press(headless::Key::f10, appkit::Event::shift);
  EXPECT_TRUE(window.isMenuOpen());
  window.press(headless::Key::escape);
  window.press(headless::Key::tab);
  window.press(headless::Key::menu);
  EXPECT_FALSE(window.isMenuOpen());
}

TEST(ContextMenu, ClosesWithItsViewWhoseActionsThenDoNothing) {
  std::vector<std::string> log;
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool gone) { return gone ? View(Text("other")) : withMenu(Text("view"), "menu", log); },
      control});
  ASSERT_TRUE(window.openContextMenu(window.findText("view")));
  const auto items = window.openMenuItems();
  control->set(true);
  window.settle();
  EXPECT_FALSE(window.isMenuOpen());
  items.back().action();
  EXPECT_THAT(log, IsEmpty());
}

TEST(ContextMenu, PopoverBesideAViewIsNoPartOfIt) {
  std::vector<std::string> log;
  headless::Window window = testing::open(
      VStack({}, {withMenu(Text("anchor").popover(Binding<bool>::constant(true),
                                                  [] { return Button("inside", [] {}); }),
                           "menu", log)}));
  const auto inside = window.find(Role::button, "inside");
  EXPECT_FALSE(window.openContextMenu(inside));
  EXPECT_FALSE(window.host().hasContextMenu(inside.id()));
  EXPECT_TRUE(window.host().hasContextMenu(window.findText("anchor").id()));
}

}  // namespace
}  // namespace viewkit
