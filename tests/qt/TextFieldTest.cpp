// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "qt/Application.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QTextEdit>

#include <cstddef>
#include <memory>

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
    const viewkit::Binding<std::string> ports(
        [fields] { return fields->ports.get(); },
        [fields](std::string text) { fields->ports = std::move(text); });
    const auto commit = [fields] {
      fields->committed = fields->ports;
      ++fields->commits;
    };
    return viewkit::VStack(
        {}, {viewkit::TextField({.placeholder = "Ports", .lineLimit = 4}, ports, commit),
             viewkit::Button("Elsewhere", [] {})});
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

TEST_F(TextFieldTest, EachKeystrokeIsReportedAndReturnCommits) {
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

TEST_F(TextFieldTest, LosingFocusCommits) {
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

TEST_F(TextFieldTest, EndOfSessionCommitsAndKeepsWindowOpen) {
  field().setFocus();
  QTest::keyClicks(&field(), "1");
  // Handlers of the signal do not use the manager, so any address will do.
  alignas(std::max_align_t) std::byte manager[64] = {};
  emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
  EXPECT_EQ(fields->commits, 1);
  EXPECT_TRUE(window().isOpen());
}

TEST_F(TextFieldTest, CorrectedTextKeepsCaret) {
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

TEST_F(TextFieldTest, PasteDropsLineBreaksAndStyles) {
  QGuiApplication::clipboard()->setText("1\n2\r\n3");
  field().selectAll();
  field().paste();
  EXPECT_EQ(fields->ports.get(), "1 2 3");
}

TEST_F(TextFieldTest, UndoStopsAtTextOfView) {
  field().undo();
  EXPECT_EQ(fields->ports.get(), "80");
}

TEST_F(TextFieldTest, CompositionIsNotInterrupted) {
  field().selectAll();
  QInputMethodEvent composing("ni", {});
  QApplication::sendEvent(&field(), &composing);
  fields->ports = "7";
  settle();
  EXPECT_EQ(field().toPlainText(), "") << "the text does not change during composition";
  QInputMethodEvent composed;
  composed.setCommitString("你");
  QApplication::sendEvent(&field(), &composed);
  EXPECT_EQ(fields->ports.get(), "你");
}

TEST_F(TextFieldTest, ContextMenuAndDialogsSpeakTheLanguageOfTheWindow) {
  const auto texts = [this] {
    QStringList found{QCoreApplication::translate("QColorDialog", "&Basic colors"),
                      QCoreApplication::translate("QFontDialog", "&Font"),
                      QCoreApplication::translate("QFileDialog", "File &name:")};
    const std::unique_ptr<QMenu> menu(field().createStandardContextMenu());
    for (const QAction* action : menu->actions()) {
      if (!action->isSeparator()) found.append(action->text().section('\t', 0, 0));
    }
    return found;
  };
  application().setLanguage("en");
  const QStringList english = texts();
  ASSERT_GE(english.size(), 9);
  for (const char* language : {"de", "fr", "es", "ja", "zh-Hans", "ar"}) {
    application().setLanguage(language);
    for (const QString& text : texts())
      EXPECT_FALSE(english.contains(text)) << language << ' ' << text.toStdString();
  }
  application().setLanguage("en");
}

class LongTextTest : public TextFieldTest {
protected:
  // A list of ports with a million characters.
  static std::string manyPorts() {
    std::string text;
    for (int port = 0; text.size() < 1'000'000; port = (port + 1) % 65536)
      text += std::to_string(port) + ", ";
    return text;
  }

  void paste(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    field().paste();
    settle();
  }

  std::string copied() {
    field().copy();
    return QGuiApplication::clipboard()->text().toStdString();
  }

  // Compared here, so that a failure does not print a million characters.
  bool holds(const std::string& text) const { return fields->ports.get() == text; }

  // The time for laying out the text grows with the square of this number.
  int charactersLaidOut() const { return field().document()->characterCount(); }
  static constexpr int kFewEnough = 10'000;

  const std::string ports = manyPorts();
};

TEST_F(LongTextTest, MillionCharactersAreKeptButMostlyNotLaidOut) {
  field().selectAll();
  paste(ports);
  EXPECT_TRUE(holds(ports));
  EXPECT_LT(charactersLaidOut(), kFewEnough);
  EXPECT_TRUE(find(QAccessible::EditableText).text(QAccessible::Value).toStdString() == ports);

  field().undo();
  EXPECT_EQ(fields->ports.get(), "80");
  field().redo();
  EXPECT_TRUE(holds(ports));
  QTest::keyClicks(&field(), "7");
  EXPECT_TRUE(holds(ports + "7")) << "typed behind what was pasted";

  QTest::keyClick(&field(), Qt::Key_Return);
  EXPECT_TRUE(fields->committed == ports + "7");
  fields->ports = ports.substr(2);
  settle();
  field().selectAll();
  EXPECT_TRUE(copied() == ports.substr(2)) << "a text that the view sets is whole";
  EXPECT_LT(charactersLaidOut(), kFewEnough);
  QTest::keyClick(&field(), Qt::Key_Delete);
  EXPECT_EQ(fields->ports.get(), "");
}

TEST_F(LongTextTest, OmittedTextIsSelectedCopiedAndRemovedAsOneCharacter) {
  field().selectAll();
  paste(ports);
  QTextCursor cursor = field().textCursor();
  cursor.setPosition(10);
  cursor.setPosition(charactersLaidOut() - 11, QTextCursor::KeepAnchor);
  field().setTextCursor(cursor);
  EXPECT_TRUE(copied() == ports.substr(10, ports.size() - 20));
  field().cut();
  EXPECT_EQ(fields->ports.get(), ports.substr(0, 10) + ports.substr(ports.size() - 10));
  field().paste();
  EXPECT_TRUE(holds(ports));
}

TEST_F(LongTextTest, GrowingTextIsShortenedAwayFromCaret) {
  field().selectAll();
  std::string expected;
  const std::string piece = ports.substr(0, 3'000);
  for (int i = 0; i < 20; ++i) {
    paste(piece);
    expected += piece;
    ASSERT_TRUE(holds(expected));
    ASSERT_LT(charactersLaidOut(), kFewEnough);
  }
  field().moveCursor(QTextCursor::Start);
  for (int i = 0; i < 20; ++i) {
    paste(piece);
    expected += piece;
    ASSERT_TRUE(holds(expected));
    ASSERT_LT(charactersLaidOut(), kFewEnough);
  }
  QTest::keyClicks(&field(), "x");
  EXPECT_TRUE(holds(expected.substr(0, 60'000) + "x" + expected.substr(60'000)));
  for (int i = 0; i < 50 && field().document()->isUndoAvailable(); ++i) field().undo();
  EXPECT_EQ(fields->ports.get(), "80") << "every change can be undone";
}

}  // namespace
}  // namespace qt
