#include "headless/Window.hpp"

#include "appkit/Application.hpp"
#include "appkit/Responder.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/ElementPrinting.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace headless {
namespace {

using namespace viewkit;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// What the views of these tests tell about themselves.
using Journal = std::shared_ptr<std::vector<std::string>>;

// A form with one of each control that a person presses or types into.
struct Form {
  Journal journal;
  State<bool> isOn = false;
  State<std::string> name = std::string("eth0");
  State<std::string> ports = std::string();
  State<bool> locked = false;
  State<std::string> picked = std::string("None");

  View body() const {
    const auto note = [journal = journal](const std::string& what) { journal->push_back(what); };
    return VStack({},
                  {
                      Button("Lock", [self = *this] { self.locked.set(!self.locked); }),
                      Toggle(isOn.binding()).accessibilityLabel("Promiscuous"),
                      TextField({.placeholder = "Name"}, name.binding(),
                                [self = *this, note] { note("name " + self.name.get()); })
                          .accessibilityLabel("Name"),
                      TextField({},
                                Binding<std::string>([self = *this] { return self.ports.get(); },
                                                     [self = *this, note](const std::string& text) {
                                                       note("typed " + text);
                                                       self.ports.set(text);
                                                     }),
                                [self = *this, note] { note("ports " + self.ports.get()); })
                          .accessibilityLabel("Ports")
                          .disabled(locked),
                      Button("Reset", [note] { note("reset"); }).disabled(locked),
                      PopUpMenu(picked,
                                [self = *this] {
                                  std::vector<MenuItem> items;
                                  for (const std::string title : {"TCP", "UDP"}) {
                                    items.push_back({.title = title, .action = [self, title] {
                                                       self.picked.set(title);
                                                     }});
                                  }
                                  return items;
                                }),
                  });
  }
};

class HeadlessWindowTest : public ::testing::Test {
protected:
  std::unique_ptr<Window> show(const View& root,
                               const WindowOptions& options = {.size = {{400, 400}}}) {
    return std::make_unique<Window>(root, Environment{.defaultStore = *store_}, options);
  }
  std::unique_ptr<Window> showForm() { return show(Form{.journal = journal_}); }

  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  Journal journal_ = std::make_shared<std::vector<std::string>>();
};

TEST_F(HeadlessWindowTest, SaysWhatThereIsWhenASearchFails) {
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

TEST_F(HeadlessWindowTest, AnElementTellsWhenItsViewIsGone) {
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

TEST_F(HeadlessWindowTest, ClicksDoWhatControlsDoUnlessTheyAreDisabled) {
  const auto window = showForm();
  const Element toggle = window->find(Role::toggle, "Promiscuous");
  EXPECT_TRUE(window->click(toggle));
  EXPECT_TRUE(std::get<ToggleControl>(*toggle.content().control()).isOn);

  const Element reset = window->find(Role::button, "Reset");
  EXPECT_TRUE(window->click(reset));
  EXPECT_THAT(*journal_, ElementsAre("reset"));
  window->click(window->find(Role::button, "Lock"));
  EXPECT_FALSE(reset.isEnabled());
  EXPECT_FALSE(window->click(reset));
  EXPECT_THAT(*journal_, ElementsAre("reset"));
}

TEST_F(HeadlessWindowTest, MenusOfferTheirItems) {
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

TEST_F(HeadlessWindowTest, TypingIsSeenCharacterByCharacterAndCommittedByEnter) {
  const auto window = showForm();
  const Element ports = window->find(Role::textField, "Ports");
  window->click(ports);
  EXPECT_TRUE(ports.isFocused());
  EXPECT_NE(dynamic_cast<appkit::Text*>(window->firstResponder()), nullptr);
  window->type("8€");
  window->press(Key::deleteBackward);
  window->press(Key::leftArrow);
  window->type("1");
  EXPECT_THAT(*journal_, ElementsAre("typed 8", "typed 8€", "typed 8", "typed 18"));
  journal_->clear();
  window->press(Key::enter);
  EXPECT_THAT(*journal_, ElementsAre("ports 18"));
  // Nothing changed since.
  window->makeFirstResponder(nullptr);
  EXPECT_THAT(*journal_, ElementsAre("ports 18"));
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessWindowTest, AChangedTextIsCommittedHoweverTheKeyboardLeavesIt) {
  const std::vector<std::function<void(std::unique_ptr<Window>&)>> ways = {
      [](auto& window) { window->press(Key::tab); },
      [](auto& window) { window->click(window->find(Role::textField, "Name")); },
      [](auto& window) { window->makeFirstResponder(nullptr); },
      [](auto& window) { window->click(window->find(Role::button, "Lock")); },
      [](auto& window) { window.reset(); },
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    auto window = showForm();
    window->click(window->find(Role::textField, "Ports"));
    window->type("7");
    journal_->clear();
    ways[way](window);
    EXPECT_THAT(*journal_, ElementsAre("ports 7")) << "way " << way;
    window.reset();
    EXPECT_EQ(journal_->size(), 1U) << "committed again, way " << way;
    journal_->clear();
  }
}

TEST_F(HeadlessWindowTest, AFieldThatGoesAwayWithAChangeInItIsCommitted) {
  struct Row {
    Journal journal;
    State<std::string> text = std::string();
    State<bool> isShown = true;
    View body() const {
      return VStack({},
                    {isShown ? TextField({}, text.binding(),
                                         [self = *this] { self.journal->push_back(self.text); })
                                   .onAppear([journal = journal] { journal->push_back("appear"); })
                             : View{},
                     Text("Elsewhere").onTap([self = *this] { self.isShown.set(false); })});
    }
  };
  const auto window = show(Row{.journal = journal_});
  window->click(window->find(Role::textField));
  window->type("x");
  window->click(window->findText("Elsewhere"));
  EXPECT_FALSE(window->find(Role::textField).exists());
  EXPECT_THAT(*journal_, ElementsAre("appear", "x"));
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessWindowTest, TheViewHasTheLastWordOnWhatIsTyped) {
  struct Digits {
    State<std::string> text = std::string();
    View body() const {
      return TextField({}, Binding<std::string>([self = *this] { return self.text.get(); },
                                                [self = *this](std::string typed) {
                                                  std::erase_if(typed, [](char c) {
                                                    return c < '0' || c > '9';
                                                  });
                                                  self.text.set(typed);
                                                }));
    }
  };
  const auto window = show(Digits{});
  const Element field = window->find(Role::textField);
  window->click(field);
  window->type("a1b2");
  EXPECT_EQ(std::get<TextFieldControl>(*field.content().control()).text, "12");
  window->selectAll();
  window->type("9");
  EXPECT_EQ(std::get<TextFieldControl>(*field.content().control()).text, "9");
}

TEST_F(HeadlessWindowTest, TabGoesRoundTheEnabledControlsInTheOrderOfTheTree) {
  const auto window = showForm();
  window->click(window->find(Role::button, "Lock"));
  std::vector<std::string> visited;
  for (int i = 0; i < 5; ++i) {
    visited.emplace_back(nameOf(window->focused()->role()));
    window->press(Key::tab);
  }
  EXPECT_THAT(visited, ElementsAre("button", "toggle", "textField", "menuButton", "button"));
  window->press(Key::tab, appkit::Event::shift);
  EXPECT_EQ(window->focused()->label(), "Lock");
  // What the keyboard comes to by tab is marked, so that typing replaces it.
  window->press(Key::tab);
  window->press(Key::tab);
  window->type("lo");
  window->press(Key::enter);
  EXPECT_THAT(*journal_, ElementsAre("name lo"));
}

TEST_F(HeadlessWindowTest, SpaceAndEnterPressWhatHasTheKeyboard) {
  const auto window = showForm();
  const Element toggle = window->find(Role::toggle, "Promiscuous");
  window->click(toggle);
  window->press(Key::space);
  EXPECT_FALSE(std::get<ToggleControl>(*toggle.content().control()).isOn);
  window->click(window->find(Role::button, "Reset"));
  window->press(Key::enter);
  EXPECT_THAT(*journal_, ElementsAre("reset", "reset"));
}

TEST_F(HeadlessWindowTest, AControlThatIsDisabledLosesTheKeyboard) {
  const auto window = showForm();
  window->click(window->find(Role::textField, "Ports"));
  // Not by a click, which would move the keyboard.
  std::get<ButtonControl>(*window->find(Role::button, "Lock").content().control()).action();
  window->settle();
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessWindowTest, MonitorsSeeKeysBeforeTheControl) {
  const auto window = showForm();
  window->click(window->find(Role::textField, "Ports"));
  const auto monitor = appkit::Event::addLocalMonitorForEventsMatchingMask(
      appkit::Event::kKeyDownMask,
      [this](const appkit::Event& event) -> std::optional<appkit::Event> {
        journal_->push_back("key " + event.characters + " " + std::to_string(event.keyCode));
        if (event.characters == "x") return std::nullopt;
        return event;
      });
  window->type("xy");
  window->press(Key::downArrow);
  EXPECT_THAT(*journal_, ElementsAre("key x -1", "key y -1", "typed y", "key  125"));
}

TEST_F(HeadlessWindowTest, KeysGoToTheKeyWindowAlone) {
  const auto first = showForm();
  EXPECT_TRUE(first->isKey());
  first->click(first->find(Role::textField, "Ports"));
  const auto second = showForm();
  EXPECT_FALSE(first->isKey());
  first->type("x");
  EXPECT_THAT(*journal_, IsEmpty());
  EXPECT_NE(first->firstResponder(), nullptr)
      << "the window keeps its responder while another is key";
  first->becomeKey();
  first->type("x");
  EXPECT_THAT(*journal_, ElementsAre("typed x"));
  first->resignKey();
  EXPECT_EQ(appkit::Application::sharedApplication().keyWindow(), nullptr);
}

TEST_F(HeadlessWindowTest, AClickThatIsNoControlsGoesToTheViewUnderIt) {
  const View root = Text("Row").frame(FixedFrame{.width = 100, .height = 30}).onTap([this] {
    journal_->push_back("tapped");
  });
  const auto window = show(root);
  EXPECT_TRUE(window->click(window->findText("Row")));
  EXPECT_FALSE(window->click(Point{399, 399}));
  EXPECT_THAT(*journal_, ElementsAre("tapped"));
}

TEST_F(HeadlessWindowTest, ThePointerHoversUntilItLeaves) {
  const View root =
      Text("Row").onHover([this](bool inside) { journal_->push_back(inside ? "in" : "out"); });
  const auto window = show(root);
  window->hover(window->findText("Row"));
  window->settle();
  window->pointerLeft();
  EXPECT_THAT(*journal_, ElementsAre("in", "out"));
}

enum class Page { first, second };

TEST_F(HeadlessWindowTest, TabsArePickedByTitle) {
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

TEST_F(HeadlessWindowTest, WhatIsScrolledOutOfSightIsScrolledIntoItToBeClicked) {
  const View root =
      ScrollView({}, VStack({}, {
                                    Button("Top", [this] { journal_->push_back("top"); }),
                                    RoundedRectangle().frame(FixedFrame{.height = 1000}),
                                    Button("Bottom", [this] { journal_->push_back("bottom"); }),
                                }));
  const auto window = show(root);
  const Element bottom = window->find(Role::button, "Bottom");
  EXPECT_GT(bottom.frame().origin.y, window->size().height);
  EXPECT_TRUE(window->click(bottom));
  EXPECT_LE(bottom.frame().maxY(), window->size().height);
  EXPECT_THAT(*journal_, ElementsAre("bottom"));

  const Element top = window->find(Role::button, "Top");
  EXPECT_LT(top.frame().origin.y, 0);
  window->scroll(bottom, -10000);
  EXPECT_GE(top.frame().origin.y, 0);
}

TEST_F(HeadlessWindowTest, PopoversCloseByEscapeAndByAClickElsewhere) {
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

TEST_F(HeadlessWindowTest, AnimationsEndAtOnceUnlessTheyAreStepped) {
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

TEST_F(HeadlessWindowTest, IsAsLargeAsItsViewUnlessTold) {
  const View root = RoundedRectangle().frame(FixedFrame{.width = 123, .height = 45});
  EXPECT_EQ(show(root, {})->size(), (Size{123, 45}));
  const auto window = show(root, {.size = {{300, 200}}});
  window->setSize({500, 100});
  EXPECT_EQ(window->describe().frame.size, (Size{500, 100}));
}

TEST(HeadlessDescription, IsNestedTextOrJSON) {
  const NodeDescription tree{
      .kind = "VStack",
      .accessibility = {},
      .frame = {{0, 0}, {100.5, 40}},
      .children = {{.kind = "Button",
                    .accessibility = {.role = Role::button,
                                      .label = "Say \"hi\"\n\xFF",
                                      .value = "",
                                      .help = "Greets",
                                      .enabled = false,
                                      .selected = true},
                    .frame = {{10, 20}, {80, 20}},
                    .visual = "placeholder \"a\"",
                    .children = {}}},
  };
  EXPECT_EQ(textDescription(tree),
            "VStack (0, 0) 100.5 x 40\n"
            "  Button button \"Say \\\"hi\\\"\\n\xEF\xBF\xBD\" help \"Greets\" selected disabled "
            "(10, 20) 80 x 20 [placeholder \\\"a\\\"]\n");
  EXPECT_EQ(jsonDescription(tree),
            R"({"kind":"VStack","role":"none","label":"","value":"","help":"","enabled":true,)"
            R"("selected":null,"visual":"",)"
            R"("frame":{"x":0,"y":0,"width":100.5,"height":40},"children":[)"
            R"({"kind":"Button","role":"button","label":"Say \"hi\"\n)"
            "\xEF\xBF\xBD"
            R"(","value":"","help":"Greets","enabled":false,)"
            R"("selected":true,"visual":"placeholder \"a\"",)"
            R"("frame":{"x":10,"y":20,"width":80,"height":20},"children":[]}]})");
}

}  // namespace
}  // namespace headless
