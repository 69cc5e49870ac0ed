// SPDX-License-Identifier: MIT
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

TEST(Controls, ActionWritesTheBindingAndShowsItsValue) {
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

TEST(Controls, DisabledButtonIgnoresClicks) {
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

TEST(Controls, MenuWithoutLabelIsNamedByItsHelp) {
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

TEST(Controls, PopoverIsShownWhileItsBindingIsTrue) {
  std::vector<std::string> log;
  headless::Window window = testing::open(Form{.log = &log});
  EXPECT_FALSE(window.findText("the help").exists());
  window.click(window.find(Role::helpButton, "Help"));
  EXPECT_TRUE(window.findText("the help").exists());
  window.press(Key::escape);
  EXPECT_FALSE(window.findText("the help").exists());
}

}  // namespace
}  // namespace viewkit
