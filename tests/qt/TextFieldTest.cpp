#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <QTextEdit>

namespace qt {
namespace {

struct Fields : foundation::ObservableObject {
  foundation::Published<std::string> ports{*this, "80"};
  std::string committed;
  int commits = 0;
};

struct FieldsView {
  viewkit::ObservedObject<Fields> model;

  viewkit::View body() const {
    const auto fields = model.get();
    const viewkit::Binding<std::string> ports([fields] { return fields->ports.get(); },
                                              [fields](std::string text) { fields->ports = std::move(text); });
    const auto commit = [fields] {
      fields->committed = fields->ports;
      ++fields->commits;
    };
    return viewkit::VStack(
        {}, {viewkit::TextField({.placeholder = "Ports"}, ports, commit), viewkit::Button("Elsewhere", [] {})});
  }
};

class TextFieldTest : public WindowFixture {
protected:
  void SetUp() override {
    open(FieldsView{fields});
    field().setFocus();
    settle();
  }

  QTextEdit& field() const { return dynamic_cast<QTextEdit&>(widget(QAccessible::EditableText)); }

  std::shared_ptr<Fields> fields = std::make_shared<Fields>();
};

TEST_F(TextFieldTest, TellsEachKeystrokeAndCommitsOnReturn) {
  field().moveCursor(QTextCursor::End);
  QTest::keyClicks(&field(), ",443");
  EXPECT_EQ(fields->ports.get(), "80,443");
  EXPECT_EQ(fields->commits, 0);
  QTest::keyClick(&field(), Qt::Key_Return);
  EXPECT_EQ(fields->committed, "80,443");
  EXPECT_EQ(fields->commits, 1);
  EXPECT_EQ(field().toPlainText(), "80,443") << "Return breaks no line";

  widget(QAccessible::PushButton, "Elsewhere").setFocus();
  settle();
  EXPECT_EQ(fields->commits, 1) << "leaving without a change commits nothing";
}

TEST_F(TextFieldTest, CommitsWhenTheKeyboardGoesElsewhere) {
  const struct {
    const char* how;
    std::function<void()> leave;
  } ways[] = {
      {"to another control", [this] { widget(QAccessible::PushButton, "Elsewhere").setFocus(); }},
      {"to none", [this] { window().makeFirstResponder(nullptr); }},
      {"with the window", [this] { window().close(); }},
  };
  int commits = 0;
  for (const auto& way : ways) {
    SCOPED_TRACE(way.how);
    field().setFocus();
    QTest::keyClicks(&field(), "1");
    EXPECT_EQ(fields->commits, commits);
    way.leave();
    settle();
    EXPECT_EQ(fields->commits, ++commits);
    EXPECT_EQ(fields->committed, fields->ports.get());
  }
}

TEST_F(TextFieldTest, KeepsTheCaretWhereItWasWhenTheTextIsPutRight) {
  field().selectAll();
  QTest::keyClicks(&field(), "80, 81,82");
  QTextCursor cursor = field().textCursor();
  cursor.setPosition(7);
  field().setTextCursor(cursor);
  fields->ports = "80,81,82";
  settle();
  EXPECT_EQ(field().toPlainText(), "80,81,82");
  EXPECT_EQ(field().textCursor().position(), 6) << "still before 82";
  field().undo();
  EXPECT_EQ(fields->ports.get(), "80, 81,82");
}

TEST_F(TextFieldTest, TakesNeitherLinesNorStylesFromTheClipboard) {
  QGuiApplication::clipboard()->setText("1\n2\r\n3");
  field().selectAll();
  field().paste();
  EXPECT_EQ(fields->ports.get(), "1 2 3");
}

TEST_F(TextFieldTest, LeavesAnInputMethodAlone) {
  field().selectAll();
  QInputMethodEvent composing("ni", {});
  QApplication::sendEvent(&field(), &composing);
  fields->ports = "7";
  settle();
  EXPECT_EQ(field().toPlainText(), "") << "nothing is put in while a word is composed";
  QInputMethodEvent composed;
  composed.setCommitString("你");
  QApplication::sendEvent(&field(), &composed);
  EXPECT_EQ(fields->ports.get(), "你");
}

TEST_F(TextFieldTest, StaysAliveWithAMillionCharacters) {
  std::string long_(1'000'000, '1');
  for (size_t i = 4; i < long_.size(); i += 5) long_[i] = ',';
  QGuiApplication::clipboard()->setText(QString::fromStdString(long_));
  field().selectAll();
  field().paste();
  settle();
  EXPECT_EQ(fields->ports.get(), long_);
}

}  // namespace
}  // namespace qt
