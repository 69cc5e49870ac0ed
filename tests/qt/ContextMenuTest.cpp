// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Event.hpp"
#include "viewkit/ContextMenu.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>
#include <QListView>
#include <QMenu>
#include <QPointingDevice>
#include <QScreen>
#include <QTest>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace qt {
namespace {

using viewkit::MenuItem;
using viewkit::View;

// A row with a label, a switch and a field, above another view without a menu.
struct Row {
  std::function<void(std::string)> pick;
  std::shared_ptr<std::function<void()>> remove = std::make_shared<std::function<void()>>();
  viewkit::State<bool> isGone = false;
  viewkit::State<bool> isOn = false;
  viewkit::State<std::string> text = std::string("80");

  View body() const {
    *remove = [gone = isGone.binding()] { gone.set(true); };
    const auto items = [pick = pick] {
      return std::vector<MenuItem>{
          {.title = "Reset", .action = [pick] { pick("Reset"); }, .isEnabled = false},
          {.title = "Copy", .action = [pick] { pick("Copy"); }},
          {.title = "Explain", .action = [pick] { pick("Explain"); }}};
    };
    const View row = viewkit::HStack(
        {}, {viewkit::Text("label"), viewkit::Toggle(isOn.binding()).accessibilityLabel("switch"),
             viewkit::TextField({}, text.binding()).accessibilityLabel("field")});
    return viewkit::VStack(
        {}, {isGone ? View() : viewkit::contextMenu(row, items), viewkit::Text("beside")});
  }
};

class ContextMenuTest : public WindowFixture {
protected:
  void SetUp() override { openRow(viewkit::LayoutDirection::leftToRight); }

  void openRow(viewkit::LayoutDirection direction) {
    open(Row{.pick = [this](std::string title) { picked = std::move(title); }, .remove = remove},
         direction);
  }

  static QListView* list() {
    auto* popup = QApplication::activePopupWidget();
    return popup ? popup->findChild<QListView*>() : nullptr;
  }

  QPoint middleOf(QAccessible::Role role, const QString& name) const {
    return topLevel().mapFromGlobal(find(role, name).rect().center());
  }

  void clickRight(QAccessible::Role role, const QString& name) const {
    QTest::mouseClick(topLevel().windowHandle(), Qt::RightButton, {}, middleOf(role, name));
    settle();
  }

  std::string picked;
  std::shared_ptr<std::function<void()>> remove = std::make_shared<std::function<void()>>();
};

TEST_F(ContextMenuTest, RightClickOpensMenuOfViewAndPicks) {
  clickRight(QAccessible::StaticText, "beside");
  EXPECT_EQ(list(), nullptr);
  clickRight(QAccessible::StaticText, "label");
  ASSERT_NE(list(), nullptr);
  QTest::keyClick(list(), Qt::Key_Down);
  EXPECT_EQ(list()->currentIndex().row(), 1) << "the first item cannot be picked";
  QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                    list()->visualRect(list()->model()->index(0, 0)).center());
  ASSERT_NE(list(), nullptr);
  EXPECT_EQ(picked, "");
  QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                    list()->visualRect(list()->model()->index(2, 0)).center());
  settle();
  EXPECT_EQ(picked, "Explain");
  EXPECT_EQ(list(), nullptr);
  clickRight(QAccessible::CheckBox, "switch");
  EXPECT_NE(list(), nullptr);
  QTest::keyClick(list(), Qt::Key_Escape);
  EXPECT_EQ(list(), nullptr);
}

TEST_F(ContextMenuTest, KeysOpenMenuOfFocusedControl) {
  QWidget& control = widget(QAccessible::CheckBox, "switch");
  for (const auto& [key, modifiers] :
       {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
    control.setFocus();
    press(key, modifiers);
    ASSERT_NE(list(), nullptr);
    EXPECT_GT(list()->mapToGlobal(QPoint()).y(), control.mapToGlobal(QPoint()).y());
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    settle();
    EXPECT_EQ(std::exchange(picked, ""), "Copy");
    EXPECT_TRUE(control.hasFocus());
  }
  press(Qt::Key_F10);
  EXPECT_EQ(list(), nullptr);
}

TEST_F(ContextMenuTest, FieldKeepsItsTextCommandsAndAddsItemsOfView) {
  widget(QAccessible::EditableText, "field").setFocus();
  press(Qt::Key_F10, Qt::ShiftModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_GT(menu->actions().size(), 3);
  QAction* const copy = menu->actions().at(menu->actions().size() - 2);
  EXPECT_EQ(copy->text(), "Copy");
  EXPECT_FALSE(menu->actions().at(menu->actions().size() - 3)->isEnabled());
  copy->trigger();
  EXPECT_EQ(picked, "Copy");
  menu->close();
  settle();
}

TEST_F(ContextMenuTest, LongPressOpensMenuAndSwitchStays) {
  static const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
  QWindow* const window = topLevel().windowHandle();
  const QPoint middle = middleOf(QAccessible::CheckBox, "switch");
  QTest::touchEvent(window, screen.get()).press(0, middle, window);
  ASSERT_TRUE(QTest::qWaitFor([] { return list() != nullptr; }));
  QTest::touchEvent(window, screen.get()).release(0, middle, window);
  settle();
  EXPECT_NE(list(), nullptr);
  EXPECT_FALSE(find(QAccessible::CheckBox, "switch").state().checked);
  QTest::keyClick(list(), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(find(QAccessible::CheckBox, "switch").state().checked);
}

TEST_F(ContextMenuTest, AssistiveTechnologyOpensReadsAndPicks) {
  const QString showMenu = QAccessibleActionInterface::showMenuAction();
  EXPECT_EQ(find(QAccessible::StaticText, "beside").actionInterface(), nullptr);
  for (auto* element :
       {&find(QAccessible::StaticText, "label"), &find(QAccessible::CheckBox, "switch")}) {
    ASSERT_NE(element->actionInterface(), nullptr);
    EXPECT_TRUE(element->actionInterface()->actionNames().contains(showMenu));
    element->actionInterface()->doAction(showMenu);
    settle();
    ASSERT_NE(list(), nullptr);
    EXPECT_TRUE(find(QAccessible::MenuItem, "Reset").state().disabled);
    QAccessibleInterface& item = find(QAccessible::MenuItem, "Copy");
    EXPECT_EQ(item.parent()->parent(), QAccessible::queryAccessibleInterface(&topLevel()));
    item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(std::exchange(picked, ""), "Copy");
    EXPECT_FALSE(has(QAccessible::MenuItem, "Copy"));
  }
}

TEST_F(ContextMenuTest, ClosesWithItsViewAndWithTheWindow) {
  clickRight(QAccessible::StaticText, "label");
  ASSERT_NE(list(), nullptr);
  (*remove)();
  settle();
  EXPECT_EQ(list(), nullptr);
  destroyWindow();
  openRow(viewkit::LayoutDirection::leftToRight);
  clickRight(QAccessible::StaticText, "label");
  ASSERT_NE(list(), nullptr);
  destroyWindow();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ContextMenuTest, LiesInsideOfScreenAndIsMirrored) {
  destroyWindow();
  openRow(viewkit::LayoutDirection::rightToLeft);
  const QRect screen = topLevel().screen()->availableGeometry();
  for (const bool atEdge : {false, true}) {
    topLevel().move(atEdge ? screen.bottomLeft() - QPoint(0, topLevel().height() / 2)
                           : screen.topLeft() + QPoint(100, 100));
    settle();
    clickRight(QAccessible::StaticText, "label");
    ASSERT_NE(list(), nullptr);
    const QRect menu = list()->window()->frameGeometry();
    EXPECT_TRUE(screen.contains(menu));
    const int pointer = find(QAccessible::StaticText, "label").rect().center().x();
    EXPECT_TRUE(atEdge || menu.right() <= pointer + 1);
    QTest::keyClick(list(), Qt::Key_Escape);
    settle();
  }
}

}  // namespace
}  // namespace qt
