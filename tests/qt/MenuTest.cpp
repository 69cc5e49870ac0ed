// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Event.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"

#include <QApplication>
#include <QListView>
#include <QTest>
#include <stdexcept>
#include <string>
#include <vector>

namespace qt {
namespace {

class MenuTest : public WindowFixture {
protected:
  void SetUp() override {
    const auto items = [this] {
      ++asked;
      std::vector<viewkit::MenuItem> made;
      for (int i = 0; i < 600; ++i) {
        const std::string title = "Zone " + std::to_string(i);
        made.push_back({.title = i == 333 ? "Gulf of " + title : title,
                        .action = [this, title] { picked = title; }});
      }
      return made;
    };
    open(viewkit::VStack({}, {viewkit::PopUpMenu("Zone 400", items).accessibilityLabel("zone")}));
  }

  QListView& list() const {
    auto* popup = QApplication::activePopupWidget();
    auto* found = popup ? popup->findChild<QListView*>() : nullptr;
    if (!found) throw std::runtime_error("no menu is open");
    return *found;
  }

  int asked = 0;
  std::string picked;
};

TEST_F(MenuTest, OpensAtCurrentItemAndPicksByKeyboard) {
  EXPECT_EQ(asked, 0);
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_Space);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(list().currentIndex().row(), 400);
  const QRect current = list().visualRect(list().currentIndex());
  EXPECT_GE(current.top(), 0);
  EXPECT_LE(current.bottom(), list().viewport()->height());

  QTest::keyClicks(&list(), "zone 7");
  EXPECT_EQ(list().currentIndex().row(), 7);
  QTest::keyClick(&list(), Qt::Key_Down);
  QTest::keyClick(&list(), Qt::Key_Return);
  EXPECT_EQ(picked, "Zone 8");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(MenuTest, KeysInOpenMenuDoNotReachMonitors) {
  int seen = 0;
  const auto monitor = appkit::Event::addLocalMonitorForEventsMatchingMask(
      appkit::Event::kKeyDownMask, [&](const appkit::Event& event) {
        ++seen;
        return std::optional(event);
      });
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_F4);
  ASSERT_EQ(seen, 1);
  QTest::keyClick(&list(), Qt::Key_Down);
  QTest::keyClick(&list(), Qt::Key_Return);
  EXPECT_EQ(picked, "Zone 401");
  EXPECT_EQ(seen, 1);
  appkit::Event::removeMonitor(monitor);
}

TEST_F(MenuTest, TypingFindsWordInsideTitle) {
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_F4);
  QTest::keyClicks(&list(), "of");
  EXPECT_EQ(list().currentIndex().row(), 333);
  QTest::keyClick(&list(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(picked, "");
}

TEST_F(MenuTest, AssistiveTechnologyOpensReadsAndPicks) {
  QAccessibleInterface& button = find(QAccessible::ButtonMenu, "zone");
  ASSERT_EQ(button.childCount(), 0);
  button.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  settle();
  ASSERT_EQ(button.childCount(), 1) << "the menu is a child of its opener";
  EXPECT_TRUE(button.state().expanded);
  const QAccessibleInterface& menu = *button.child(0);
  EXPECT_EQ(menu.parent(), &button);
  EXPECT_TRUE(find(QAccessible::MenuItem, "Zone 400").state().focused);

  QAccessibleInterface& item = find(QAccessible::MenuItem, "Zone 7");
  EXPECT_TRUE(item.state().offscreen);
  item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  settle();
  EXPECT_EQ(picked, "Zone 7");
  EXPECT_EQ(button.childCount(), 0);
}

TEST_F(MenuTest, MousePicksButOpeningClickDoesNot) {
  QWidget& button = widget(QAccessible::ButtonMenu, "zone");
  QTest::mouseClick(&button, Qt::LeftButton);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(picked, "");
  list().scrollTo(list().model()->index(401, 0));
  QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                    list().visualRect(list().model()->index(401, 0)).center());
  EXPECT_EQ(picked, "Zone 401");
}

TEST_F(MenuTest, RowsOfAnotherFontAreAsHighAsOthersAndAMarkedItemIsCurrent) {
  const auto rowHeight = [this](const std::optional<viewkit::Font>& font) {
    destroyWindow();
    open(viewkit::PopUpMenu("an identifier", [font] {
           return std::vector<viewkit::MenuItem>{
               {.title = "first", .action = {}, .font = font},
               {.title = "a name", .action = {}, .font = font, .isCurrent = true}};
         }).accessibilityLabel("zone"));
    QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_F4);
    EXPECT_EQ(list().currentIndex().row(), 1);
    const int height = list().visualRect(list().model()->index(0, 0)).height();
    QTest::keyClick(&list(), Qt::Key_Escape);
    return height;
  };
  EXPECT_EQ(rowHeight(viewkit::Font::system(viewkit::Font::kBodySize)), rowHeight(std::nullopt));
}

using PopUpButtonTest = WindowFixture;

TEST_F(PopUpButtonTest, ButtonWithoutTitleIsVisibleAndOpens) {
  std::string picked;
  open(viewkit::PopUpMenu("", [&] {
         return std::vector<viewkit::MenuItem>{
             {.title = "Zone", .action = [&] { picked = "Zone"; }}};
       }).accessibilityLabel("zones"));
  QWidget& button = widget(QAccessible::ButtonMenu, "zones");
  EXPECT_TRUE(button.isVisible());
  EXPECT_GT(button.width(), 16);
  button.setFocus();
  press(Qt::Key_Space);
  QWidget* popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  QWidget& list = popup->focusWidget() ? *popup->focusWidget() : *popup;
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Return);
  settle();
  EXPECT_EQ(picked, "Zone");
}

}  // namespace
}  // namespace qt
