// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <string>

namespace viewkit {
namespace {

struct Card {
  State<std::string> title = std::string("Light");
  State<int> taps = 0;
  View body() const {
    return VStack({}, {Image::symbol("clock"), Text(title).uppercased(),
                       Text("taps " + std::to_string(taps))})
        .accessibilityRole(Role::listItem)
        .accessibilitySelected(taps > 0)
        .onTap([self = *this] {
          self.taps.set(self.taps + 1);
          self.title.set("Dark");
        });
  }
};

TEST(Speech, ViewWithARoleSaysTheLabelsOfItsContents) {
  headless::Window window = testing::open(View(Card{}));
  const headless::Element card = window.find(Role::listItem);
  EXPECT_EQ(card.label(), "Light taps 0");
  EXPECT_TRUE(window.findAll(Role::text).empty());
  EXPECT_TRUE(card.content().accessibility.pressable);
  EXPECT_TRUE(window.host().press(card.id()));
  window.settle();
  EXPECT_EQ(card.label(), "Dark taps 1");
}

TEST(Speech, PartOfAClickablePageIsNotPressable) {
  int onPage = 0;
  int onRow = 0;
  const View row =
      HStack({}, {Text("row")}).accessibilityRole(Role::listItem).onTap([&] { ++onRow; });
  headless::Window window = testing::open(
      VStack({}, {Text("title").accessibilityRole(Role::heading), row}).onTap([&] { ++onPage; }));
  EXPECT_FALSE(window.find(Role::heading).content().accessibility.pressable);
  EXPECT_TRUE(window.find(Role::listItem).content().accessibility.pressable);
  EXPECT_TRUE(window.host().press(window.find(Role::listItem).id()));
  EXPECT_EQ(onRow, 1);
  EXPECT_EQ(onPage, 0);
}

TEST(Speech, ControlsInAListItemAreToldSeparately) {
  bool isOn = false;
  int presses = 0;
  headless::Window window = testing::open(VStack(
      {}, {HStack({}, {Text("Checksums"),
                       Toggle(Binding<bool>([&] { return isOn; }, [&](bool on) { isOn = on; }))
                           .accessibilityLabel("on")})
               .accessibilityRole(Role::listItem),
           PlainButton(Text("eth0"), [&] { ++presses; }).accessibilityRole(Role::listItem)}));
  const auto items = window.findAll(Role::listItem);
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].label(), "Checksums") << "a control says its own name";
  EXPECT_TRUE(items[0].findAll(Role::text).empty());
  ASSERT_EQ(items[0].findAll(Role::toggle).size(), 1U);
  window.click(items[0].findAll(Role::toggle)[0]);
  EXPECT_TRUE(isOn);

  EXPECT_EQ(items[1].label(), "eth0") << "unless there is nothing else to say";
  ASSERT_EQ(items[1].findAll(Role::button).size(), 1U);
  window.click(items[1].findAll(Role::button)[0]);
  EXPECT_EQ(presses, 1);
}

TEST(Speech, LabelHelpAndSelectionApplyToTheContainerAlone) {
  const headless::Window window = testing::open(HStack({}, {Text("a"), Text("b")})
                                                    .accessibilityLabel("both")
                                                    .help("two letters")
                                                    .accessibilitySelected(true));
  const headless::Element group = window.find(Role::group);
  EXPECT_EQ(group.label(), "both");
  EXPECT_EQ(group.help(), "two letters");
  EXPECT_EQ(group.isSelected(), true);
  EXPECT_EQ(group.findAll(Role::text).size(), 2U);
  EXPECT_EQ(group.findText("a").label(), "a");
}

TEST(Speech, PlainButtonIsNamedByTheTextsInIt) {
  const headless::Window window =
      testing::open(PlainButton(HStack({}, {Text("Open"), Text("file")}), [] {}));
  EXPECT_EQ(window.find(Role::button).label(), "Open file");
}

}  // namespace
}  // namespace viewkit
