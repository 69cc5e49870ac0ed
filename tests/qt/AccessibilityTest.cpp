// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/Text.hpp"

#include <QAccessibleInterface>

#include <string>
#include <vector>

namespace qt {
namespace {

using viewkit::Role;
using viewkit::View;

struct Rows {
  viewkit::State<int> selected = 0;

  View row(int index) const {
    return viewkit::Text("row " + std::to_string(index))
        .onTap([self = *this, index] { self.selected.set(index); })
        .accessibilityRole(Role::listItem)
        .accessibilityLabel("item " + std::to_string(index))
        .accessibilitySelected(selected.get() == index);
  }

  View body() const {
    return viewkit::VStack(
        {},
        {viewkit::Text("Heading").accessibilityRole(Role::heading),
         viewkit::Image::symbol("clock").accessibilityLabel("A clock"),
         viewkit::VStack({}, {row(0), row(1)})
             .accessibilityRole(Role::list)
             .accessibilityLabel("Rows"),
         viewkit::HStack(
             {},
             {viewkit::Toggle(viewkit::Binding<bool>::constant(true)).accessibilityLabel("switch")})
             .accessibilityRole(Role::group),
         viewkit::HStack({}, {viewkit::Text("Row"), viewkit::Button("Edit", [] {})})
             .accessibilityRole(Role::listItem),
         selected.get() == 1 ? View(viewkit::Text("Beware").accessibilityRole(Role::alert))
                             : View{}});
  }
};

using AccessibilityTest = WindowFixture;

TEST_F(AccessibilityTest, PaintedNodesHavePlaceAndParent) {
  open(Rows{});
  EXPECT_TRUE(has(QAccessible::Heading, "Heading"));
  EXPECT_TRUE(has(QAccessible::Graphic, "A clock"));
  const QAccessibleInterface& list = find(QAccessible::List, "Rows");
  ASSERT_EQ(list.childCount(), 2);
  const QAccessibleInterface& second = *list.child(1);
  EXPECT_EQ(second.role(), QAccessible::ListItem);
  EXPECT_EQ(second.parent(), &list);
  EXPECT_EQ(list.indexOfChild(&second), 1);
  EXPECT_TRUE(list.rect().contains(second.rect()));

  const QAccessibleInterface& toggle = find(QAccessible::CheckBox, "switch");
  EXPECT_EQ(toggle.parent()->role(), QAccessible::Grouping)
      << "a control has the parent of its view";
  EXPECT_TRUE(toggle.state().checked);
  EXPECT_TRUE(toggle.parent()->rect().contains(toggle.rect()));
  const QAccessibleInterface& row = find(QAccessible::ListItem, "Row");
  ASSERT_EQ(row.childCount(), 1) << "the controls of a row are its children";
  EXPECT_EQ(row.child(0)->role(), QAccessible::PushButton);
  EXPECT_EQ(row.child(0)->text(QAccessible::Name), "Edit");
  EXPECT_EQ(row.child(0)->parent(), &row);
  EXPECT_EQ(list.childAt(second.rect().center().x(), second.rect().center().y()), &second);
}

TEST_F(AccessibilityTest, PressOnPaintedNodeUpdatesStateAndShowsAlert) {
  open(Rows{});
  EXPECT_TRUE(find(QAccessible::ListItem, "item 0").state().selected);
  QAccessibleInterface& item = find(QAccessible::ListItem, "item 1");
  EXPECT_FALSE(item.state().selected);
  ASSERT_NE(item.actionInterface(), nullptr);
  item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  settle();
  EXPECT_TRUE(item.state().selected);
  EXPECT_TRUE(has(QAccessible::AlertMessage, "Beware"));
}

TEST_F(AccessibilityTest, TextFieldIsReadAndEdited) {
  std::string typed;
  open(viewkit::TextField(
      {.placeholder = "Ports"},
      viewkit::Binding<std::string>([&] { return typed; },
                                    [&](const std::string& text) { typed = text; })));
  QAccessibleInterface& field = find(QAccessible::EditableText, "Ports");
  ASSERT_NE(field.editableTextInterface(), nullptr);
  field.editableTextInterface()->insertText(0, "80,443");
  EXPECT_EQ(typed, "80,443");
  QAccessibleTextInterface& text = *field.textInterface();
  text.setSelection(0, 3, 6);
  EXPECT_EQ(text.text(3, 6), "443");
  EXPECT_EQ(text.cursorPosition(), 6);
  EXPECT_EQ(text.selectionCount(), 1);
}

// A list whose items are selected by the arrow keys.
struct SelectableList {
  viewkit::State<int> selected = 0;

  View item(int index) const {
    return viewkit::Text("item " + std::to_string(index))
        .frame(viewkit::FixedFrame{.height = 40})
        .onTap([self = *this, index] { self.selected.set(index); })
        .accessibilityRole(Role::listItem)
        .accessibilitySelected(selected.get() == index);
  }

  View body() const {
    const viewkit::ListItems items{
        .count = 6, .selected = selected, .select = [self = *this](int index) {
          self.selected.set(index);
        }};
    return viewkit::VStack(
        {}, {viewkit::Button("before", [] {}),
             viewkit::ScrollView({.list = items},
                                 viewkit::VStack({.spacing = 0}, {item(0), item(1), item(2),
                                                                  item(3), item(4), item(5)}))
                 .frame(viewkit::FixedFrame{.width = 200, .height = 90})
                 .accessibilityLabel("Items"),
             viewkit::Button("after", [] {})});
  }
};

TEST_F(AccessibilityTest, ListIsOneStopAndItsSelectedItemHasTheFocus) {
  open(SelectableList{});
  widget(QAccessible::PushButton, "before").setFocus();
  press(Qt::Key_Tab);
  const QAccessibleInterface& list = find(QAccessible::List, "Items");
  EXPECT_TRUE(list.state().focused);
  ASSERT_EQ(list.childCount(), 6);
  const auto focused = [&] {
    QAccessibleInterface* const item = list.focusChild();
    return item ? item->text(QAccessible::Name) : QString();
  };
  EXPECT_EQ(focused(), "item 0");
  press(Qt::Key_Down);
  EXPECT_EQ(focused(), "item 1");
  EXPECT_TRUE(list.child(1)->state().focused);
  EXPECT_FALSE(list.child(0)->state().focused);
  press(Qt::Key_End);
  EXPECT_EQ(focused(), "item 5");
  EXPECT_FALSE(list.child(5)->state().offscreen) << "the item is scrolled into sight";
  press(Qt::Key_Tab);
  EXPECT_TRUE(find(QAccessible::PushButton, "after").state().focused);
  EXPECT_TRUE(list.child(5)->state().selected);
  EXPECT_FALSE(list.child(5)->state().focused);
}

TEST_F(AccessibilityTest, RefusedTextIsInvalidAndTellsWhy) {
  struct Field {
    viewkit::State<std::string> text = std::string("x");
    viewkit::State<std::string> problem = std::string();
    View body() const {
      return viewkit::TextField({.placeholder = "Ports", .problem = problem}, text.binding(),
                                [self = *this] { self.problem.set("not a port"); });
    }
  };
  open(Field{});
  const QAccessibleInterface& field = find(QAccessible::EditableText, "Ports");
  EXPECT_FALSE(field.state().invalid);
  widget(QAccessible::EditableText, "Ports").setFocus();
  press(Qt::Key_Return);
  EXPECT_TRUE(field.state().invalid);
  EXPECT_EQ(field.text(QAccessible::Description), "not a port");
  EXPECT_TRUE(field.isValid()) << "the field itself is there";
}

TEST_F(AccessibilityTest, ColorWellTellsItsColor) {
  open(viewkit::ColorWell(viewkit::Binding<appkit::RGBA>::constant({1, 0, 0, 1}))
           .accessibilityLabel("color"));
  EXPECT_EQ(find(QAccessible::PushButton, "color").text(QAccessible::Description), "#FF0000");
}

}  // namespace
}  // namespace qt
