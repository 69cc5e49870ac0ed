// SPDX-License-Identifier: MIT
#include "RecordingBinding.hpp"
#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <memory>
#include <string>
#include <vector>

namespace qt {
namespace {

using viewkit::Binding;
using viewkit::View;

using ControlsTest = WindowFixture;

TEST_F(ControlsTest, ButtonsArePressedByMouseAndKeyboard) {
  std::vector<std::string> pressed;
  open(viewkit::VStack(
      {}, {viewkit::Button("push", [&] { pressed.emplace_back("push"); }),
           viewkit::PlainButton(viewkit::Text("plain"), [&] { pressed.emplace_back("plain"); })
               .accessibilityLabel("plain"),
           viewkit::Button("off", [&] { pressed.emplace_back("off"); }).disabled(true)}));
  for (const char* name : {"push", "plain", "off"}) {
    QWidget& button = widget(QAccessible::PushButton, name);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
  }
  EXPECT_EQ(pressed, (std::vector<std::string>{"push", "push", "push", "plain", "plain", "plain"}));
}

TEST_F(ControlsTest, SwitchWritesOtherValueAndShowsValueOfItsView) {
  std::vector<bool> writes;
  open(viewkit::Toggle(recording(writes, false)).accessibilityLabel("switch"));
  QWidget& toggle = widget(QAccessible::CheckBox, "switch");
  QTest::mouseClick(&toggle, Qt::LeftButton);
  QTest::keyClick(&toggle, Qt::Key_Space);
  settle();
  EXPECT_EQ(writes, (std::vector<bool>{true, true})) << "the view kept its value";
  EXPECT_FALSE(find(QAccessible::CheckBox, "switch").state().checked);
}

// A press of this type and its release, without a turn of the queue in between.
void pressQuickly(QWidget& widget, QEvent::Type press) {
  const QPointF middle = QRectF(widget.rect()).center();
  for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

TEST_F(ControlsTest, EachPressWithinOneTurnOfTheQueueCounts) {
  struct Pressed {
    std::shared_ptr<std::vector<std::string>> writes;
    viewkit::State<bool> isOn = false;
    viewkit::State<int> taps = 0;
    View body() const {
      const Binding<bool> flag([self = *this] { return self.isOn.get(); },
                               [self = *this](bool on) {
                                 self.isOn.set(on);
                                 self.writes->push_back(on ? "on" : "off");
                               });
      const auto tap = [self = *this, shown = taps.get()] {
        self.taps.set(shown + 1);
        self.writes->push_back("tap " + std::to_string(shown + 1));
      };
      return viewkit::VStack(
          {}, {viewkit::Toggle(flag).accessibilityLabel("switch"),
               viewkit::PlainButton(viewkit::Text("plain"), tap).accessibilityLabel("plain"),
               viewkit::Text("row")
                   .frame(viewkit::FixedFrame{.width = 300, .height = 200})
                   .onTap(tap)});
    }
  };
  const auto writes = std::make_shared<std::vector<std::string>>();
  open(Pressed{.writes = writes});
  const auto pressed = [&](QWidget& target) {
    writes->clear();
    pressQuickly(target, QEvent::MouseButtonPress);
    pressQuickly(target, QEvent::MouseButtonDblClick);
    pressQuickly(target, QEvent::MouseButtonPress);
    return *writes;
  };
  EXPECT_EQ(pressed(widget(QAccessible::CheckBox, "switch")),
            (std::vector<std::string>{"on", "off", "on"}));
  EXPECT_EQ(pressed(widget(QAccessible::PushButton, "plain")),
            (std::vector<std::string>{"tap 1", "tap 2", "tap 3"}));
  EXPECT_EQ(pressed(topLevel()), (std::vector<std::string>{"tap 4", "tap 5", "tap 6"}))
      << "a painted row";
}

// Records at each painting of a control whether it is checked.
class CheckedWatcher : public QObject {
public:
  explicit CheckedWatcher(QWidget& control) : QObject(&control) {
    control.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      painted.push_back(QAccessible::queryAccessibleInterface(watched)->state().checked != 0);
    return false;
  }

  std::vector<bool> painted;
};

TEST_F(ControlsTest, ReleasedSwitchIsPaintedWithItsNewStateOnly) {
  struct Switch {
    viewkit::State<bool> isOn = false;
    View body() const { return viewkit::Toggle(isOn.binding()).accessibilityLabel("switch"); }
  };
  open(Switch{});
  QWidget& toggle = widget(QAccessible::CheckBox, "switch");
  QTest::mousePress(&toggle, Qt::LeftButton);
  settle();
  const CheckedWatcher watcher(toggle);
  QTest::mouseRelease(&toggle, Qt::LeftButton);
  settle();
  EXPECT_THAT(watcher.painted,
              testing::AllOf(testing::Not(testing::IsEmpty()), testing::Each(true)));
}

TEST_F(ControlsTest, PressMayDestroyTheWindow) {
  int presses = 0;
  open(viewkit::Button("close", [&] {
    ++presses;
    destroyWindow();
  }));
  pressQuickly(widget(QAccessible::PushButton, "close"), QEvent::MouseButtonPress);
  settle();
  EXPECT_EQ(presses, 1);
}

enum class Page { first, second };

struct Tabs {
  viewkit::State<Page> page = Page::first;
  View body() const {
    return viewkit::TabView(
        page.binding(),
        std::vector<viewkit::Tab<Page>>{{Page::first, "First", "clock", viewkit::Text("one")},
                                        {Page::second, "Second", "globe", viewkit::Text("two")}});
  }
};

TEST_F(ControlsTest, ChosenTabShowsItsPage) {
  open(Tabs{});
  auto* bar = topLevel().findChild<QTabBar*>();
  ASSERT_NE(bar, nullptr);
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  settle();
  EXPECT_TRUE(has(QAccessible::StaticText, "two"));
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_Left);
  settle();
  EXPECT_TRUE(has(QAccessible::StaticText, "one"));
  EXPECT_FALSE(has(QAccessible::StaticText, "two"));
  EXPECT_TRUE(find(QAccessible::PageTab, "First").state().selected);
}

TEST_F(ControlsTest, FocusScrollsControlIntoView) {
  open(viewkit::ScrollView(
      {},
      viewkit::VStack({}, {viewkit::forEach(
                              std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, [](int i) { return i; },
                              [](int i) {
                                return viewkit::Button("row " + std::to_string(i), [] {})
                                    .frame(viewkit::FixedFrame{.height = 100});
                              })})));
  const QWidget& last = widget(QAccessible::PushButton, "row 9");
  EXPECT_TRUE(last.visibleRegion().isEmpty());
  widget(QAccessible::PushButton, "row 0").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  settle();
  EXPECT_TRUE(last.hasFocus());
  EXPECT_EQ(last.visibleRegion().boundingRect(), last.rect());
}

TEST_F(ControlsTest, WheelAtTheEndOfAnInnerAreaScrollsTheOuterOne) {
  const auto tall = [](const char* name) {
    return viewkit::Button(name, [] {})
        .frame(viewkit::FixedFrame{.height = 600, .alignment = viewkit::Alignment::top()});
  };
  open(viewkit::ScrollView({}, viewkit::VStack({}, {viewkit::ScrollView({}, tall("inner"))
                                                        .frame(viewkit::FixedFrame{.height = 200}),
                                                    tall("outer")}))
           .frame(viewkit::FixedFrame{.width = 200, .height = 300}));
  const QWidget& inner = widget(QAccessible::PushButton, "inner");
  const QPointF at = inner.mapTo(&topLevel(), inner.rect().center());
  const auto turnWheel = [&] {
    QWheelEvent wheel(at, topLevel().mapToGlobal(at), {0, -600}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QWidget* receiver = topLevel().childAt(at.toPoint());
    while (receiver && (QApplication::sendEvent(receiver, &wheel), !wheel.isAccepted()))
      receiver = receiver->parentWidget();
    settle();
  };
  const auto topOf = [&](const char* name) {
    const QWidget& button = widget(QAccessible::PushButton, name);
    return button.mapTo(&topLevel(), QPoint()).y();
  };
  const int outer = topOf("outer");
  turnWheel();
  EXPECT_EQ(topOf("outer"), outer);
  turnWheel();
  EXPECT_LT(topOf("outer"), outer);
}

}  // namespace
}  // namespace qt
