// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Application.hpp"
#include "appkit/Event.hpp"
#include "appkit/Responder.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"

#include <QApplication>
#include <QTest>
#include <vector>

namespace qt {
namespace {

using viewkit::View;

View field(const std::string& name) {
  return viewkit::TextField({.placeholder = name}, viewkit::Binding<std::string>::constant("text"));
}

using KeyboardTest = WindowFixture;

TEST_F(KeyboardTest, TabFollowsOrderOfTree) {
  struct Shuffled {
    viewkit::State<bool> reversed = false;
    View body() const {
      const View first = viewkit::Button("one", [] {}).id("one");
      const View second = viewkit::Button("two", [] {}).id("two");
      return viewkit::VStack({},
                             {viewkit::Button("turn", [self = *this] { self.reversed.set(true); }),
                              reversed ? second : first, reversed ? first : second});
    }
  };
  open(Shuffled{});
  const auto order = [&] {
    std::vector<QString> names;
    widget(QAccessible::PushButton, "turn").setFocus();
    for (int i = 0; i < 3; ++i) {
      names.push_back(QApplication::focusWidget()->accessibleName());
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return names;
  };
  EXPECT_EQ(order(), (std::vector<QString>{"turn", "one", "two"}));
  QTest::keyClick(&widget(QAccessible::PushButton, "turn"), Qt::Key_Return);
  settle();
  EXPECT_EQ(order(), (std::vector<QString>{"turn", "two", "one"}));
}

TEST_F(KeyboardTest, MonitorsSeeEachPressOnceBeforeWindow) {
  int pressed = 0;
  open(viewkit::VStack({}, {viewkit::Button("press", [&] { ++pressed; }), field("field")}));
  std::vector<appkit::Event> seen;
  bool consume = false;
  const auto monitor = appkit::Event::addLocalMonitorForEventsMatchingMask(
      appkit::Event::kKeyDownMask, [&](const appkit::Event& event) {
        const bool isModifierAlone =
            event.keyCode == appkit::Event::kOtherKey && event.characters.empty();
        if (!isModifierAlone) seen.push_back(event);
        return consume ? std::nullopt : std::optional(event);
      });

  QWidget& button = widget(QAccessible::PushButton, "press");
  button.setFocus();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
    QTest::keyClick(topLevel().windowHandle(), key, Qt::ShiftModifier);
  }
  QTest::keyClick(topLevel().windowHandle(), Qt::Key_A);
  ASSERT_EQ(seen.size(), 5U);
  const int codes[] = {125, 126, 123, 124, appkit::Event::kOtherKey};
  for (size_t i = 0; i < seen.size(); ++i) EXPECT_EQ(seen[i].keyCode, codes[i]);
  EXPECT_EQ(seen[0].modifiers, appkit::Event::shift);
  EXPECT_EQ(seen[4].characters, "a");

  consume = true;
  QTest::keyClick(topLevel().windowHandle(), Qt::Key_Return);
  EXPECT_EQ(pressed, 0) << "the window does not receive a consumed key";
  appkit::Event::removeMonitor(monitor);
  QTest::keyClick(topLevel().windowHandle(), Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
}

TEST_F(KeyboardTest, FirstResponderIsTextWhileTextIsEdited) {
  open(viewkit::VStack({}, {viewkit::Button("button", [] {}), field("field")}));
  EXPECT_EQ(appkit::Application::sharedApplication().keyWindow(), &window());
  window().makeFirstResponder(nullptr);
  EXPECT_EQ(window().firstResponder(), nullptr);

  widget(QAccessible::EditableText).setFocus();
  appkit::Responder* text = window().firstResponder();
  EXPECT_NE(dynamic_cast<appkit::Text*>(text), nullptr);
  widget(QAccessible::PushButton, "button").setFocus();
  ASSERT_NE(window().firstResponder(), nullptr);
  EXPECT_EQ(dynamic_cast<appkit::Text*>(window().firstResponder()), nullptr);

  EXPECT_TRUE(window().makeFirstResponder(text));
  EXPECT_EQ(window().firstResponder(), text);
  destroyWindow();
  EXPECT_EQ(appkit::Application::sharedApplication().keyWindow(), nullptr);
}

}  // namespace
}  // namespace qt
