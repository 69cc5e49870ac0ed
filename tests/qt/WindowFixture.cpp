// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Application.hpp"
#include "qt/Application.hpp"

#include <QApplication>
#include <QTest>
#include <stdexcept>

namespace qt {

namespace {

void collect(QAccessibleInterface* root, QAccessible::Role role, const QString& name,
             std::vector<QAccessibleInterface*>& found) {
  if (!root) return;
  if (root->role() == role && (name.isEmpty() || root->text(QAccessible::Name) == name))
    found.push_back(root);
  for (int i = 0; i < root->childCount(); ++i) collect(root->child(i), role, name, found);
}

// Ends Qt's application before static objects are destroyed, because some of them belong to it.
class ApplicationOfAllTests : public testing::Environment {
public:
  void TearDown() override { application_.reset(); }

  Application& application() {
    if (!application_)
      application_ = std::make_unique<Application>(argc_, argv_, Application::Display::offscreen);
    return *application_;
  }

private:
  int argc_ = 1;
  char name_[8] = "qt_test";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<Application> application_;
};

ApplicationOfAllTests& applicationOfAllTests() {
  // GoogleTest owns it.
  static auto* environment = new ApplicationOfAllTests;
  static const auto* registered = testing::AddGlobalTestEnvironment(environment);
  static_cast<void>(registered);
  return *environment;
}

}  // namespace

Application& WindowFixture::application() { return applicationOfAllTests().application(); }

void WindowFixture::TearDown() {
  destroyWindow();
  appkit::Application::sharedApplication().setAppearance(std::nullopt);
}

void WindowFixture::open(viewkit::View root, viewkit::LayoutDirection direction) {
  const QWidgetList before = QApplication::topLevelWidgets();
  window_ = std::make_unique<Window>(WindowOptions{
      .title = "Test",
      .size = {400, 300},
      .environment = {.defaultStore = *store_, .layoutDirection = direction, .reducedMotion = true},
      .root = std::move(root)});
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (!before.contains(each)) topLevel_ = each;
  }
  window_->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(topLevel_));
  settle();
}

void WindowFixture::settle() {
  for (int i = 0; i < 5; ++i) Application::processEvents();
}

std::vector<QAccessibleInterface*> WindowFixture::findAll(QAccessible::Role role,
                                                          const QString& name) const {
  std::vector<QAccessibleInterface*> found;
  collect(QAccessible::queryAccessibleInterface(topLevel_), role, name, found);
  return found;
}

QAccessibleInterface& WindowFixture::find(QAccessible::Role role, const QString& name) const {
  const auto found = findAll(role, name);
  if (found.empty()) throw std::runtime_error("no such control: " + name.toStdString());
  return *found.front();
}

bool WindowFixture::has(QAccessible::Role role, const QString& name) const {
  return !findAll(role, name).empty();
}

QWidget& WindowFixture::widget(QAccessible::Role role, const QString& name) const {
  auto* found = qobject_cast<QWidget*>(find(role, name).object());
  if (!found) throw std::runtime_error("not a widget: " + name.toStdString());
  return *found;
}

void WindowFixture::click(const QAccessibleInterface& target) const {
  const QPoint middle = topLevel_->mapFromGlobal(target.rect().center());
  QTest::mouseMove(topLevel_->windowHandle(), middle);
  QTest::mouseClick(topLevel_->windowHandle(), Qt::LeftButton, {}, middle);
  settle();
}

void WindowFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(topLevel_->windowHandle(), key, modifiers);
  settle();
}

void WindowFixture::type(const QString& text) const {
  for (const QChar each : text) QTest::keyClick(topLevel_->windowHandle(), each.toLatin1());
  settle();
}

void WindowFixture::destroyWindow() {
  window_.reset();
  topLevel_ = nullptr;
  settle();
}

}  // namespace qt
