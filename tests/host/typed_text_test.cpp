// SPDX-License-Identifier: MIT
// A text that is being typed when the program ends: the host's own window, in a forked process.
// This process has no Qt application, and no thread while it forks.

#include "foundation/UserDefaults.hpp"
#include "process/Interruption.hpp"
#include "support/TemporaryFolder.hpp"
#include "window/DesktopHost.hpp"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>

namespace {

using zorvantine::DesktopHost;
using zorvantine::Interruption;
using zorvantine::Tab;

QWidget* fieldNamed(const QString& name) {
  for (QWidget* each : QApplication::allWidgets()) {
    QAccessibleInterface* const told =
        each->isVisible() ? QAccessible::queryAccessibleInterface(each) : nullptr;
    if (told && told->role() == QAccessible::EditableText && told->text(QAccessible::Name) == name)
      return each;
  }
  return nullptr;
}

// Types into the field as soon as its window is active, then acts.
void typeWhenActive(const QString& name, const QString& text, const std::function<void()>& act) {
  QWidget* const field = QApplication::activeWindow() ? fieldNamed(name) : nullptr;
  if (!field) {
    QTimer::singleShot(10, qApp, [=] { typeWhenActive(name, text, act); });
    return;
  }
  field->setFocus();
  QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(field, text);
  act();
}

[[noreturn]] void typeInHost(const std::filesystem::path& path, Tab tab, const QString& name,
                             const QString& text, const std::function<void()>& act) {
  // The signals are held back in every thread that comes later.
  const Interruption interruption;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  {
    const auto store = foundation::UserDefaults::open(path);
    zorvantine::WindowOptions options;
    options.language = "en";
    DesktopHost host(options, *store, qt::Application::Display::screen);
    QTimer::singleShot(0, qApp, [=] { typeWhenActive(name, text, act); });
    host.run(tab, interruption);
  }
  std::exit(0);
}

TEST(TypedTextDeathTest, IsStoredHoweverTheProgramEnds) {
  const struct {
    const char* name;
    std::function<void()> act;
  } endings[] = {
      {"SIGTERM", [] { ::raise(SIGTERM); }},
      {"SIGHUP", [] { ::raise(SIGHUP); }},
      {"SIGINT", [] { ::raise(SIGINT); }},
      {"the window closes", [] { QApplication::activeWindow()->close(); }},
      {"Ctrl+W",
       [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier); }},
      {"the application quits", [] { qt::Application::quit(); }},
  };
  const struct {
    Tab tab = Tab::general;
    const char* field = nullptr;
    const char* text = nullptr;
    const char* key = nullptr;
    QEVSettings::PreferenceValue stored;
  } fields[] = {
      {Tab::proxy, "Listening port", "9090", "com_velloquin_zorvantine_proxy_listeningAddress",
       "localhost:9090"},
      {Tab::capture, "Capture filter", "tcp", "com_velloquin_zorvantine_capture_filter", "tcp"},
  };
  for (const auto& ending : endings) {
    for (const auto& field : fields) {
      SCOPED_TRACE(std::string(ending.name) + ", " + field.field);
      const support::TemporaryFolder folder;
      const auto path = folder.path() / "preferences.sqlite";
      EXPECT_EXIT(typeInHost(path, field.tab, field.field, field.text, ending.act),
                  testing::ExitedWithCode(0), "");
      EXPECT_EQ(foundation::UserDefaults::open(path)->objectForKey(field.key), field.stored);
    }
  }
}

TEST(TypedTextDeathTest, IsToldWhenItIsRefusedAndTheWindowCloses) {
  const support::TemporaryFolder folder;
  const auto path = folder.path() / "preferences.sqlite";
  EXPECT_EXIT(typeInHost(path, Tab::proxy, "Listening port", "99999", [] { ::raise(SIGTERM); }),
              testing::ExitedWithCode(0),
              "zorvantine: \"99999\" was not stored for Listening port: ");
  EXPECT_FALSE(foundation::UserDefaults::open(path)->objectForKey(
      "com_velloquin_zorvantine_proxy_listeningAddress"));
}

}  // namespace
