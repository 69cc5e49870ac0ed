// SPDX-License-Identifier: MIT
#include "Form.hpp"
#include "appkit/Application.hpp"
#include "appkit/Responder.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headless {
namespace {

using namespace viewkit;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Journal;

class HeadlessKeyboard : public testing::HeadlessTest {};

TEST_F(HeadlessKeyboard, TypingWritesEachCharacterAndEnterCommits) {
  const auto window = showForm();
  const Element ports = window->find(Role::textField, "Ports");
  window->click(ports);
  EXPECT_TRUE(ports.isFocused());
  EXPECT_NE(dynamic_cast<appkit::Text*>(window->firstResponder()), nullptr);
  window->type("8€");
  window->press(Key::deleteBackward);
  window->press(Key::leftArrow);
  window->type("1");
  EXPECT_THAT(*journal, ElementsAre("typed 8", "typed 8€", "typed 8", "typed 18"));
  journal->clear();
  window->press(Key::enter);
  EXPECT_THAT(*journal, ElementsAre("ports 18"));
  // Nothing changed since.
  window->makeFirstResponder(nullptr);
  EXPECT_THAT(*journal, ElementsAre("ports 18"));
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessKeyboard, ChangedTextIsCommittedOnceWhenTheFieldLosesTheKeyboard) {
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
    journal->clear();
    ways[way](window);
    EXPECT_THAT(*journal, ElementsAre("ports 7")) << "way " << way;
    window.reset();
    EXPECT_EQ(journal->size(), 1U) << "committed again, way " << way;
    journal->clear();
  }
}

TEST_F(HeadlessKeyboard, ChangedTextIsCommittedWhenTheFieldDisappears) {
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
  const auto window = show(Row{.journal = journal});
  window->click(window->find(Role::textField));
  window->type("x");
  window->click(window->findText("Elsewhere"));
  EXPECT_FALSE(window->find(Role::textField).exists());
  EXPECT_THAT(*journal, ElementsAre("appear", "x"));
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessKeyboard, ViewMayReplaceTheTypedText) {
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

TEST_F(HeadlessKeyboard, TabVisitsTheEnabledControlsInTreeOrder) {
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
  EXPECT_THAT(*journal, ElementsAre("name lo"));
}

TEST_F(HeadlessKeyboard, SpaceAndEnterPressTheFocusedControl) {
  const auto window = showForm();
  const Element toggle = window->find(Role::toggle, "Promiscuous");
  window->click(toggle);
  window->press(Key::space);
  EXPECT_FALSE(std::get<ToggleControl>(*toggle.content().control()).isOn);
  window->click(window->find(Role::button, "Reset"));
  window->press(Key::enter);
  EXPECT_THAT(*journal, ElementsAre("reset", "reset"));
}

TEST_F(HeadlessKeyboard, DisabledControlLosesTheKeyboard) {
  const auto window = showForm();
  window->click(window->find(Role::textField, "Ports"));
  // Not by a click, which would move the keyboard.
  std::get<ButtonControl>(*window->find(Role::button, "Lock").content().control()).action();
  window->settle();
  EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(HeadlessKeyboard, MonitorGetsKeysBeforeTheControl) {
  const auto window = showForm();
  window->click(window->find(Role::textField, "Ports"));
  const auto monitor = appkit::Event::addLocalMonitorForEventsMatchingMask(
      appkit::Event::kKeyDownMask,
      [this](const appkit::Event& event) -> std::optional<appkit::Event> {
        journal->push_back("key " + event.characters + " " + std::to_string(event.keyCode));
        if (event.characters == "x") return std::nullopt;
        return event;
      });
  window->type("xy");
  window->press(Key::downArrow);
  EXPECT_THAT(*journal, ElementsAre("key x -1", "key y -1", "typed y", "key  125"));
}

TEST_F(HeadlessKeyboard, OnlyTheKeyWindowGetsKeys) {
  const auto first = showForm();
  EXPECT_TRUE(first->isKey());
  first->click(first->find(Role::textField, "Ports"));
  const auto second = showForm();
  EXPECT_FALSE(first->isKey());
  first->type("x");
  EXPECT_THAT(*journal, IsEmpty());
  EXPECT_NE(first->firstResponder(), nullptr)
      << "the window keeps its responder while another is key";
  first->becomeKey();
  first->type("x");
  EXPECT_THAT(*journal, ElementsAre("typed x"));
  first->resignKey();
  EXPECT_EQ(appkit::Application::sharedApplication().keyWindow(), nullptr);
}

}  // namespace
}  // namespace headless
