#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/Text.hpp"

#include <QAccessibleInterface>

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
  QAccessibleInterface& list = find(QAccessible::List, "Rows");
  ASSERT_EQ(list.childCount(), 2);
  QAccessibleInterface& second = *list.child(1);
  EXPECT_EQ(second.role(), QAccessible::ListItem);
  EXPECT_EQ(second.parent(), &list);
  EXPECT_EQ(list.indexOfChild(&second), 1);
  EXPECT_TRUE(list.rect().contains(second.rect()));

  QAccessibleInterface& toggle = find(QAccessible::CheckBox, "switch");
  EXPECT_EQ(toggle.parent()->role(), QAccessible::Grouping)
      << "a control has the parent of its view";
  EXPECT_TRUE(toggle.state().checked);
  EXPECT_TRUE(toggle.parent()->rect().contains(toggle.rect()));
  QAccessibleInterface& row = find(QAccessible::ListItem, "Row");
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
  open(viewkit::TextField({.placeholder = "Ports"},
                          viewkit::Binding<std::string>([&] { return typed; },
                                                        [&](std::string text) { typed = text; })));
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

}  // namespace
}  // namespace qt
