// SPDX-License-Identifier: MIT
#include "viewkit/KeyPress.hpp"

#include "Support.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using appkit::Event;
using headless::Key;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Journal = std::shared_ptr<std::vector<std::string>>;

std::function<bool(const Event&)> noting(const Journal& journal, const std::string& name,
                                         bool takes) {
  return [journal, name, takes](const Event& press) {
    if (press.keyCode != Event::kF) return false;
    journal->push_back(name);
    return takes;
  };
}

struct Fields {
  Journal journal;
  State<std::string> text = std::string();
  View body() const {
    return onKeyPress(
        VStack({}, {onKeyPress(TextField({.placeholder = "inner"}, text.binding()),
                               KeyScope::focusInside, noting(journal, "inner", false)),
                    TextField({.placeholder = "other"}, text.binding())}),
        KeyScope::window, noting(journal, "outer", true));
  }
};

TEST(KeyPress, HandlersHearTheKeysOfTheirScopeInnerOnesFirst) {
  const auto journal = std::make_shared<std::vector<std::string>>();
  headless::Window window = testing::open(Fields{journal});
  window.press(Key::f);
  window.click(window.find(Role::textField, "other"));
  window.press(Key::f);
  EXPECT_THAT(*journal, ElementsAre("outer", "outer"));
  journal->clear();
  window.click(window.find(Role::textField, "inner"));
  window.press(Key::f);
  EXPECT_THAT(*journal, ElementsAre("inner", "outer"));
  // The key that was taken types nothing.
  EXPECT_EQ(window.find(Role::textField, "inner").value(), "");
  window.type("a");
  EXPECT_EQ(window.find(Role::textField, "inner").value(), "a");
}

TEST(KeyPress, ViewThatIsNotShownHearsNothing) {
  const auto journal = std::make_shared<std::vector<std::string>>();
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool isGone) {
        return isGone ? View()
                      : onKeyPress(Text("x"), KeyScope::window, noting(journal, "x", true));
      },
      control});
  control->set(true);
  window.settle();
  window.press(Key::f);
  EXPECT_THAT(*journal, IsEmpty());
}

struct Rows {
  std::shared_ptr<std::optional<ScrollProxy>> proxy;
  View body() const {
    return ScrollViewReader([proxy = proxy](const ScrollProxy& views) {
      *proxy = views;
      const std::vector<int> numbers{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
      const View rows =
          VStack({}, {forEach(
                         numbers, [](int number) { return std::to_string(number); },
                         [](int number) {
                           const std::string name = std::to_string(number);
                           return HStack({}, {Text(name).frame(FixedFrame{.height = 60}),
                                              Button("off " + name, [] {}).disabled(true),
                                              Button("on " + name, [] {})})
                               .id(name);
                         })});
      return ScrollView({}, rows);
    });
  }
};

TEST(Focus, FirstUsableControlOfAViewIsScrolledIntoSightAndGetsTheKeyboard) {
  const auto proxy = std::make_shared<std::optional<ScrollProxy>>();
  headless::Window window = testing::open(Rows{proxy}, {300, 200});
  (*proxy)->focus(std::string("8"));
  window.settle();
  ASSERT_TRUE(window.focused().has_value());
  EXPECT_EQ(window.focused()->label(), "on 8");
  EXPECT_LE(window.focused()->frame().maxY(), 200);
  (*proxy)->focus(std::string("unknown"));
  window.settle();
  EXPECT_EQ(window.focused()->label(), "on 8");
}

enum class Page { one };

TEST(TabAccessory, StandsBesideTheTabsOrAboveThemWhereThereIsNoRoom) {
  const auto tabs = [](const View& accessory) {
    return TabView<Page>(Binding<Page>::constant(Page::one),
                         {{.tag = Page::one, .title = "One", .symbol = "clock", .page = Text("p")}},
                         {}, accessory);
  };
  const View accessory = TextField({.placeholder = "a"}, Binding<std::string>::constant(""))
                             .frame(FlexibleFrame{.minWidth = 0, .maxWidth = 90});
  const headless::Window plain = testing::open(tabs({}), {400, 300});
  const headless::Window wide = testing::open(tabs(accessory), {400, 300});
  const Rect bar = wide.find(Role::tabList).frame();
  EXPECT_EQ(bar, plain.find(Role::tabList).frame());
  EXPECT_EQ(wide.find(Role::textField).frame().maxX(), 400);
  EXPECT_GE(wide.find(Role::textField).frame().origin.x, bar.maxX());
  EXPECT_EQ(wide.findText("p").frame(), plain.findText("p").frame());

  const headless::Window narrow = testing::open(tabs(accessory), {150, 300});
  EXPECT_LE(narrow.find(Role::textField).frame().maxY(),
            narrow.find(Role::tabList).frame().origin.y);
}

}  // namespace
}  // namespace viewkit
