// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <functional>

namespace qt {
namespace {

using viewkit::View;

// A page of a fixed size with a button at its top and one at its bottom.
View page(double width, double height) {
  return viewkit::VStack({}, {viewkit::Button("top", [] {}), viewkit::Spacer(),
                              viewkit::Button("bottom", [] {})})
      .frame(viewkit::FixedFrame{.width = width, .height = height});
}

class SmallWindowTest : public WindowFixture {
protected:
  // Whether the whole button lies within the window.
  bool isInSight(const char* name) const {
    const QWidget& button = widget(QAccessible::PushButton, name);
    const QRect place(button.mapTo(&topLevel(), QPoint()), button.size());
    return button.isVisible() && topLevel().rect().contains(place);
  }

  bool hasScrollBar(Qt::Orientation orientation) const {
    const auto bars = topLevel().findChildren<QScrollBar*>();
    return std::ranges::any_of(bars, [&](const QScrollBar* bar) {
      return bar->isVisible() && bar->orientation() == orientation;
    });
  }

  void turnWheel(int degrees) const {
    const QPointF middle = QRectF(topLevel().rect()).center();
    QWheelEvent event(middle, topLevel().mapToGlobal(middle), {}, {0, degrees * 8}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&topLevel(), &event);
    settle();
  }
};

TEST_F(SmallWindowTest, WindowLowerThanItsPageScrollsByWheelKeysAndFocus) {
  open(page(400, 600));
  EXPECT_EQ(topLevel().height(), 600);
  EXPECT_FALSE(hasScrollBar(Qt::Vertical));
  topLevel().resize(400, 300);
  settle();
  ASSERT_EQ(topLevel().height(), 300) << "a window may be lower than its page";
  EXPECT_TRUE(hasScrollBar(Qt::Vertical));

  const struct {
    const char* how;
    std::function<void()> down;
    std::function<void()> up;
  } ways[] = {
      {"wheel", [this] { turnWheel(-1500); }, [this] { turnWheel(1500); }},
      {"keys", [this] { press(Qt::Key_End); }, [this] { press(Qt::Key_Home); }},
      {"pages",
       [this] {
         press(Qt::Key_PageDown);
         press(Qt::Key_PageDown);
       },
       [this] {
         press(Qt::Key_PageUp);
         press(Qt::Key_PageUp);
       }},
      {"focus", [this] { widget(QAccessible::PushButton, "bottom").setFocus(); },
       [this] { widget(QAccessible::PushButton, "top").setFocus(); }},
  };
  for (const auto& [how, down, up] : ways) {
    SCOPED_TRACE(how);
    down();
    settle();
    EXPECT_TRUE(isInSight("bottom"));
    EXPECT_FALSE(isInSight("top"));
    up();
    settle();
    EXPECT_TRUE(isInSight("top"));
    EXPECT_FALSE(isInSight("bottom"));
  }

  topLevel().resize(400, 600);
  settle();
  EXPECT_FALSE(hasScrollBar(Qt::Vertical));
  EXPECT_TRUE(isInSight("top") && isInSight("bottom"));
}

TEST_F(SmallWindowTest, WindowOpensNoLargerThanTheScreenAndNothingIsOutOfReach) {
  for (const auto direction :
       {viewkit::LayoutDirection::leftToRight, viewkit::LayoutDirection::rightToLeft}) {
    open(page(2000, 1500), direction);
    const QSize screen = topLevel().screen()->availableSize();
    EXPECT_LE(topLevel().width(), screen.width());
    EXPECT_LE(topLevel().height(), screen.height());
    EXPECT_TRUE(hasScrollBar(Qt::Vertical) && hasScrollBar(Qt::Horizontal));
    for (const char* name : {"bottom", "top"}) {
      widget(QAccessible::PushButton, name).setFocus();
      settle();
      EXPECT_TRUE(isInSight(name)) << name;
    }
    destroyWindow();
  }
}

TEST_F(SmallWindowTest, ContentHigherThanItsFrameScrollsWithinIt) {
  for (const double height : {80.0, 500.0}) {
    open(viewkit::VStack(
        {.spacing = 0},
        {viewkit::scrollingWhereTooHigh(page(300, height)).frame({.width = 300, .height = 150}),
         viewkit::Button("help", [] {})}));
    widget(QAccessible::PushButton, "bottom").setFocus();
    settle();
    EXPECT_TRUE(isInSight("bottom"));
    EXPECT_EQ(widget(QAccessible::PushButton, "bottom").visibleRegion().boundingRect(),
              widget(QAccessible::PushButton, "bottom").rect());
    EXPECT_EQ(hasScrollBar(Qt::Vertical), height > 150);
    EXPECT_EQ(has(QAccessible::Pane), height > 150) << "what does not scroll is not told";
    EXPECT_EQ(widget(QAccessible::PushButton, "help").y(), 150) << "the frame keeps its height";
    destroyWindow();
  }
}

}  // namespace
}  // namespace qt
