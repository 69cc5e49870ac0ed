#include "Support.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace viewkit {
namespace {

using headless::Key;
using ::testing::ElementsAre;

struct Form {
  State<std::string> name = std::string("old");
  State<bool> on = false;
  State<bool> asking = false;
  std::vector<std::string>* log;

  View body() const {
    return VStack(
        {}, {TextField({.placeholder = "Name"}, name.binding(),
                       [self = *this] { self.log->push_back(self.name); }),
             Toggle(on.binding(), ToggleControl::Size::small).accessibilityLabel("Power"),
             Text(name.get() + (on ? " on" : " off")),
             Button("Apply", [self = *this] { self.log->push_back("apply"); })
                 .disabled(!on)
                 .help("Applies it"),
             Menu(HStack({}, {Text("TCP"), Image::symbol("chevron.up.chevron.down")}), "TCP",
                  [self = *this] {
                    return std::vector<MenuItem>{{"UDP", [self] { self.log->push_back("udp"); }}};
                  })
                 .help("Source"),
             HelpButton([self = *this] { self.asking.set(true); })
                 .accessibilityLabel("Help")
                 .popover(asking.binding(), [] { return Text("the help"); })});
  }
};

TEST(Controls, WriteTheirBindingsAndShowWhatTheySay) {
  std::vector<std::string> log;
  headless::Window window = testing::open(Form{.log = &log});
  window.click(window.find(Role::toggle, "Power"));
  EXPECT_EQ(window.find(Role::toggle, "Power").value(), "on");
  window.click(window.find(Role::textField, "Name"));
  window.selectAll();
  window.type("new");
  EXPECT_TRUE(window.findText("new on").exists());
  EXPECT_THAT(log, ElementsAre());
  window.press(Key::enter);
  EXPECT_THAT(log, ElementsAre("new"));
}

TEST(Controls, DisabledOnesDoNothing) {
  std::vector<std::string> log;
  headless::Window window = testing::open(Form{.log = &log});
  const headless::Element apply = window.find(Role::button, "Apply");
  EXPECT_FALSE(apply.isEnabled());
  EXPECT_EQ(apply.help(), "Applies it");
  window.click(apply);
  window.click(window.find(Role::toggle, "Power"));
  window.click(apply);
  EXPECT_THAT(log, ElementsAre("apply"));
}

TEST(Controls, AMenuIsNamedByItsHelpAndTellsItsValue) {
  std::vector<std::string> log;
  headless::Window window = testing::open(Form{.log = &log});
  const headless::Element menu = window.find(Role::menuButton, "Source");
  EXPECT_EQ(menu.value(), "TCP");
  window.choose(menu, "UDP");
  EXPECT_THAT(log, ElementsAre("udp"));
}

TEST(Controls, MenuKindTellsAPopUpButtonFromALabel) {
  const auto items = [] { return std::vector<MenuItem>{{"UDP", [] {}}}; };
  const headless::Window window = testing::open(
      VStack({}, {PopUpMenu("", items).help("button"), Menu(Text(""), "", items).help("label")}));
  const auto control = [&](const char* name) {
    return *window.find(Role::menuButton, name).content().control();
  };
  EXPECT_EQ(std::get<MenuControl>(control("button")).kind, MenuControl::Kind::popUpButton);
  EXPECT_EQ(std::get<MenuControl>(control("label")).kind, MenuControl::Kind::label);
  EXPECT_FALSE(looksLike(control("button"), control("label")));
  EXPECT_TRUE(looksLike(control("button"), control("button")));
}

TEST(Controls, APopoverIsThereWhileItsBindingSaysSo) {
  std::vector<std::string> log;
  headless::Window window = testing::open(Form{.log = &log});
  EXPECT_FALSE(window.findText("the help").exists());
  window.click(window.find(Role::helpButton, "Help"));
  EXPECT_TRUE(window.findText("the help").exists());
  window.press(Key::escape);
  EXPECT_FALSE(window.findText("the help").exists());
}

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

TEST(Accessibility, ARoleSpeaksForAllThatItContains) {
  headless::Window window = testing::open(View(Card{}));
  const headless::Element card = window.find(Role::listItem);
  EXPECT_EQ(card.label(), "Light taps 0");
  EXPECT_TRUE(window.findAll(Role::text).empty());
  EXPECT_TRUE(card.content().accessibility.pressable);
  EXPECT_TRUE(window.host().press(card.id()));
  window.settle();
  EXPECT_EQ(card.label(), "Dark taps 1");
}

TEST(Accessibility, APageThatTakesClicksMakesNoneOfItsPartsAButton) {
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

TEST(Accessibility, AListItemLeavesItsControlsTold) {
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

TEST(Accessibility, WhatIsSaidOfAContainerIsSaidOnce) {
  headless::Window window = testing::open(HStack({}, {Text("a"), Text("b")})
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

TEST(Accessibility, APlainButtonIsNamedByItsWords) {
  headless::Window window =
      testing::open(PlainButton(HStack({}, {Text("Open"), Text("file")}), [] {}));
  EXPECT_EQ(window.find(Role::button).label(), "Open file");
}

TEST(Pointer, ClicksGoToTheInnermostRegion) {
  std::vector<std::string> log;
  headless::Window window =
      testing::open(HStack({.spacing = 0}, {Text("inner").onTap([&] { log.emplace_back("inner"); }),
                                            Text("beside")})
                        .onTap([&] { log.emplace_back("outer"); }));
  window.click(window.findText("inner"));
  window.click(window.findText("beside"));
  EXPECT_THAT(log, ElementsAre("inner", "outer"));
}

}  // namespace
}  // namespace viewkit
