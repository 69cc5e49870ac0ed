// SPDX-License-Identifier: MIT
#include "QEVKonstantsKeys/Keys.hpp"
#include "appkit/Application.hpp"
#include "appkit/Event.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "host/MainWindow.hpp"
#include "qt/Application.hpp"
#include "qt/Window.hpp"
#include "viewkit/Controls.hpp"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <algorithm>
#include <memory>

namespace embedding {
namespace {

using appkit::Appearance;
using foundation::UserDefaults;

QAccessibleInterface* find(QAccessibleInterface* root, QAccessible::Role role,
                           const QString& name) {
  if (!root || (root->role() == role && root->text(QAccessible::Name) == name)) return root;
  for (int i = 0; i < root->childCount(); ++i) {
    if (auto* const found = find(root->child(i), role, name)) return found;
  }
  return nullptr;
}

void settle() {
  for (int i = 0; i < 5; ++i) qt::Application::processEvents();
}

// A program's QApplication, with the style of the program.
class Embedding : public testing::Test {
protected:
  Embedding() { QApplication::setStyle(QStyleFactory::create("Windows")); }
  ~Embedding() override {
    settle();
    appkit::Application::sharedApplication().setAppearance(std::nullopt);
  }

  static void click(QWidget& window, QAccessible::Role role, const QString& name) {
    auto* const target = find(QAccessible::queryAccessibleInterface(&window), role, name);
    ASSERT_NE(target, nullptr) << name.toStdString();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      window.mapFromGlobal(target->rect().center()));
    settle();
  }

  int count = 1;
  char programName[10] = "embedding";
  char* words[2] = {programName, nullptr};
  QApplication application{count, words};
  std::unique_ptr<UserDefaults> store = UserDefaults::inMemory();
};

TEST_F(Embedding, DialogOfTheHostShowsThePageTwiceAndStoresWhatIsChosen) {
  const qt::Application settings;
  MainWindow window(*store);
  window.show();
  for (const auto& [mode, appearance] :
       {std::pair("Light", Appearance::light), std::pair("Dark", Appearance::dark)}) {
    const QPointer<PreferencesDialog> dialog = window.openPreferences();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    click(*dialog, QAccessible::PushButton, mode);
    EXPECT_EQ(appkit::Application::sharedApplication().appearance(), appearance);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window).lightness() < 128,
              appearance == Appearance::dark);
    click(*dialog, QAccessible::PageTab, "Capture");
    EXPECT_NE(find(QAccessible::queryAccessibleInterface(dialog), QAccessible::CheckBox,
                   "Promiscuous mode"),
              nullptr);
    dialog->close();
    settle();
    EXPECT_EQ(dialog, nullptr);
  }
  EXPECT_EQ(store->stringForKey(QEVKonstantsKeys::kAppearanceName.name),
            "NSAppearanceNameDarkAqua");
}

TEST_F(Embedding, DialogStaysOpenWhileATextIsRefused) {
  const qt::Application settings;
  MainWindow window(*store);
  window.show();
  const QPointer<PreferencesDialog> dialog = window.openPreferences();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
  click(*dialog, QAccessible::PageTab, "Capture");
  auto* const length = find(QAccessible::queryAccessibleInterface(dialog),
                            QAccessible::EditableText, "Snapshot length (bytes)");
  ASSERT_NE(length, nullptr);
  auto* const field = qobject_cast<QWidget*>(length->object());
  field->setFocus();
  const auto enter = [&](const QString& text) {
    QTest::keyClick(dialog->windowHandle(), Qt::Key_A, Qt::ControlModifier);
    for (const QChar each : text) QTest::keyClick(dialog->windowHandle(), each.toLatin1());
  };
  enter("1");
  dialog->close();
  settle();
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  field->setFocus();
  enter("128");
  dialog->close();
  settle();
  EXPECT_EQ(dialog, nullptr);
  EXPECT_EQ(store->integerForKey("com_velloquin_zorvantine_capture_snapshotLength"), 128);
}

TEST_F(Embedding, StyleIsTheHostsAndThePaletteIsPutBack) {
  QPalette colors = QApplication::palette();
  colors.setColor(QPalette::Window, Qt::yellow);
  QApplication::setPalette(colors);
  {
    const qt::Application settings;
    appkit::Application::sharedApplication().setAppearance(Appearance::dark);
    settle();
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 128);
    EXPECT_EQ(QApplication::style()->name(), "windows");
    EXPECT_EQ(QCoreApplication::applicationName(), "embedding");
  }
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::yellow));
}

// A page with a field, in a dialog with a field of the host's.
class EmbeddedKeys : public Embedding {
protected:
  EmbeddedKeys() {
    settings.widget().setParent(&dialog);
    hostField.setGeometry(0, 0, 100, 30);
    settings.widget().setGeometry(0, 40, 400, 300);
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    settle();
  }
  ~EmbeddedKeys() override { appkit::Event::removeMonitor(monitor); }

  QDialog dialog;
  QLineEdit hostField{&dialog};
  int presses = 0;
  qt::Window settings{{.environment = {.defaultStore = *store},
                       .root = viewkit::Button("press", [this] { ++presses; })}};
  std::vector<int> seen;
  bool consume = false;
  std::shared_ptr<appkit::Event::Monitor> monitor =
      appkit::Event::addLocalMonitorForEventsMatchingMask(
          appkit::Event::kKeyDownMask, [this](const appkit::Event& event) {
            seen.push_back(event.keyCode);
            return consume ? std::nullopt : std::optional(event);
          });
};

TEST_F(EmbeddedKeys, MonitorsSeeEachPressOnceInADialogWithAPage) {
  EXPECT_EQ(appkit::Application::sharedApplication().keyWindow(), &settings);
  QWidget& button = *settings.widget().findChild<QAbstractButton*>();
  button.setFocus();
  // Nobody accepts the arrow, which so passes through every ancestor of the button.
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Up, Qt::ShiftModifier);
  QTest::keyClick(&button, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(std::ranges::count(seen, appkit::Event::kUpArrow), 2);
  consume = true;
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Space);
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(presses, 0);
  consume = false;
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Space);
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(presses, 2);
  hostField.setFocus();
  QTest::keyClicks(&hostField, "ab");
  EXPECT_EQ(hostField.text(), "ab");
}

TEST_F(Embedding, WindowIsClosedWhenTheHostsWindowIsDestroyedFirst) {
  auto dialog = std::make_unique<QDialog>();
  qt::Window settings(
      {.environment = {.defaultStore = *store}, .root = viewkit::Button("press", [] {})});
  settings.widget().setParent(dialog.get());
  dialog->show();
  EXPECT_TRUE(settings.isOpen());
  dialog.reset();
  EXPECT_FALSE(settings.isOpen());
  EXPECT_TRUE(settings.close());
  EXPECT_EQ(settings.firstResponder(), nullptr);
  EXPECT_FALSE(settings.snapshot("picture.png", 1));
}

TEST(ApplicationBeforeQApplication, QueueRunsOnceTheEventLoopDoes) {
  const qt::Application settings;
  bool hasRun = false;
  foundation::MainQueue::mainQueue().async([&] { hasRun = true; });
  int count = 1;
  char name[5] = "test";
  char* words[] = {name, nullptr};
  const QApplication application(count, words);
  EXPECT_TRUE(QTest::qWaitFor([&] { return hasRun; }));
}

TEST(WindowDeathTest, WithoutAQApplicationStopsWithOneLine) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto open = [] {
    const auto store = UserDefaults::inMemory();
    const qt::Window window(
        {.environment = {.defaultStore = *store}, .root = viewkit::Button("press", [] {})});
  };
  EXPECT_DEATH(open(), "needs a QApplication; make one, or a qt::Application");
  const auto openInPlainProgram = [&] {
    int count = 1;
    char name[5] = "test";
    char* words[] = {name, nullptr};
    const QCoreApplication application(count, words);
    open();
  };
  EXPECT_DEATH(openInPlainProgram(), "this program runs a QCoreApplication");
}

}  // namespace
}  // namespace embedding
