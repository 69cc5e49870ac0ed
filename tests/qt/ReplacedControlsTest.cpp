// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>
#include <QColorDialog>
#include <QTest>
#include <QTextEdit>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace qt {
namespace {

using viewkit::View;

struct Page {
  std::string ports;
  bool isOn = false;
  appkit::RGBA color = {};
  int lines = 1;
  std::vector<std::string> calls = {};
};

struct Pages : foundation::ObservableObject {
  foundation::Published<std::size_t> shown{*this, 0};
  std::array<Page, 2> pages = {
      Page{.ports = "80", .color = {.red = 1, .green = 0, .blue = 0, .opacity = 1}},
      Page{.ports = "53",
           .isOn = true,
           .color = {.red = 0, .green = 0, .blue = 1, .opacity = 1},
           .lines = 12}};
};

// Two pages with the same controls and different identities, so the widgets of one are reused for
// the other.
struct PagesView {
  viewkit::ObservedObject<Pages> model;

  View body() const {
    const auto pages = model.get();
    Page& page = pages->pages.at(pages->shown);
    const auto called = [&page](std::string what) { page.calls.push_back(std::move(what)); };
    std::string lines = "Page " + std::to_string(pages->shown + 1);
    for (int i = 1; i < page.lines; ++i) lines += "\nline";
    const auto other = [pages] { pages->shown = 1 - pages->shown; };
    return viewkit::VStack(
        {}, {viewkit::Button("Other page", other),
             viewkit::ScrollView(
                 {}, viewkit::VStack(
                         {}, {viewkit::Toggle({[&page] { return page.isOn; },
                                               [&page](bool isOn) { page.isOn = isOn; }})
                                  .accessibilityLabel("on"),
                              viewkit::ColorWell({[&page] { return page.color; },
                                                  [&page, called](const appkit::RGBA& color) {
                                                    page.color = color;
                                                    called("color");
                                                  }})
                                  .accessibilityLabel("color"),
                              viewkit::TextField(
                                  {.placeholder = "Ports"},
                                  {[&page] { return page.ports; },
                                   [&page](std::string ports) { page.ports = std::move(ports); }},
                                  [&page, called] { called("commit " + page.ports); }),
                              viewkit::Button("Leave", other), viewkit::Text(lines).selectable()}))
                 .id(std::to_string(pages->shown.get()))});
  }
};

class ReplacedControlsTest : public WindowFixture {
protected:
  void SetUp() override { open(PagesView{pages}); }

  void show(std::size_t page) {
    pages->shown = page;
    settle();
  }
  QTextEdit& field() const { return dynamic_cast<QTextEdit&>(widget(QAccessible::EditableText)); }

  std::shared_ptr<Pages> pages = std::make_shared<Pages>();
};

TEST_F(ReplacedControlsTest, ReusedControlsLookLikeNewOnes) {
  for (const std::size_t page : {1, 0, 1}) {
    show(page);
    const QImage here = topLevel().grab().toImage();
    destroyWindow();
    open(PagesView{pages});
    EXPECT_TRUE(here == topLevel().grab().toImage()) << "page " << page + 1;
  }
}

TEST_F(ReplacedControlsTest, ReusedControlsKeepNoStateOfFormerNode) {
  field().setFocus();
  field().moveCursor(QTextCursor::End);
  QTest::keyClicks(&field(), ",443");
  widget(QAccessible::PushButton, "Other page").setFocus();
  settle();
  show(1);
  EXPECT_EQ(field().toPlainText(), "53");
  field().setFocus();
  QTest::keyClick(&field(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(field().toPlainText(), "53") << "undo does not reach the text of the other page";
  widget(QAccessible::PushButton, "Other page").setFocus();
  settle();
  EXPECT_EQ(pages->pages[0].calls, std::vector<std::string>{"commit 80,443"});
  EXPECT_TRUE(pages->pages[1].calls.empty());
  EXPECT_EQ(pages->pages[1].ports, "53");
}

TEST_F(ReplacedControlsTest, ControlsInUseAreNotReused) {
  field().setFocus();
  field().moveCursor(QTextCursor::End);
  QTest::keyClicks(&field(), ",443");
  show(1);
  EXPECT_EQ(field().toPlainText(), "53");
  EXPECT_FALSE(field().hasFocus()) << "the focused field was removed";
  EXPECT_EQ(pages->pages[1].ports, "53");
  EXPECT_TRUE(pages->pages[1].calls.empty());

  click(find(QAccessible::PushButton, "color"));
  auto* dialog = topLevel().findChild<QColorDialog*>();
  ASSERT_NE(dialog, nullptr);
  dialog->setCurrentColor(Qt::green);
  show(0);
  EXPECT_EQ(topLevel().findChild<QColorDialog*>(), nullptr)
      << "the chooser closes with its color well";
  EXPECT_EQ(pages->pages[0].color.red, 1);
  EXPECT_EQ(pages->pages[0].calls, std::vector<std::string>{"commit 80,443"})
      << "removing the field commits its text; the color was not reported yet";

  // A button that removes itself.
  click(find(QAccessible::PushButton, "Leave"));
  settle();
  EXPECT_EQ(pages->shown.get(), 1U);
  click(find(QAccessible::PushButton, "Leave"));
  settle();
  EXPECT_EQ(pages->shown.get(), 0U);
}

TEST_F(ReplacedControlsTest, ReusedControlsHaveNewAccessibleInterfaces) {
  QAccessibleInterface& before = find(QAccessible::CheckBox, "on");
  const QAccessible::Id id = QAccessible::uniqueId(&before);
  EXPECT_FALSE(before.state().checked);
  show(1);
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
  QAccessibleInterface& after = find(QAccessible::CheckBox, "on");
  EXPECT_NE(QAccessible::uniqueId(&after), id);
  EXPECT_TRUE(after.state().checked);
  EXPECT_EQ(findAll(QAccessible::CheckBox).size(), 1U);
}

}  // namespace
}  // namespace qt
