#include "WindowFixture.hpp"

#include "appkit/Application.hpp"
#include "qt/Application.hpp"

#include <QApplication>
#include <QTest>
#include <stdexcept>

namespace qt {

namespace {

QAccessibleInterface* findIn(QAccessibleInterface* root, QAccessible::Role role, const QString& name) {
  if (!root) return nullptr;
  if (root->role() == role && (name.isEmpty() || root->text(QAccessible::Name) == name)) return root;
  for (int i = 0; i < root->childCount(); ++i) {
    if (auto* found = findIn(root->child(i), role, name)) return found;
  }
  return nullptr;
}

// Qt's application has to be gone before static objects go, those of the window among them.
class ApplicationOfAllTests : public testing::Environment {
public:
  void TearDown() override { application_.reset(); }

  Application& application() {
    if (!application_) application_ = std::make_unique<Application>(argc_, argv_, Application::Display::offscreen);
    return *application_;
  }

private:
  int argc_ = 1;
  char name_[8] = "qt_test";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<Application> application_;
};

ApplicationOfAllTests& applicationOfAllTests() {
  // GoogleTest destroys it.
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
  window_ = std::make_unique<Window>(
      WindowOptions{.title = "Test",
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

QAccessibleInterface& WindowFixture::find(QAccessible::Role role, const QString& name) const {
  auto* found = findIn(QAccessible::queryAccessibleInterface(topLevel_), role, name);
  if (!found) throw std::runtime_error("there is no such control: " + name.toStdString());
  return *found;
}

bool WindowFixture::has(QAccessible::Role role, const QString& name) const {
  return findIn(QAccessible::queryAccessibleInterface(topLevel_), role, name) != nullptr;
}

QWidget& WindowFixture::widget(QAccessible::Role role, const QString& name) const {
  auto* found = qobject_cast<QWidget*>(find(role, name).object());
  if (!found) throw std::runtime_error("that is not a widget: " + name.toStdString());
  return *found;
}

void WindowFixture::destroyWindow() {
  window_.reset();
  topLevel_ = nullptr;
  settle();
}

}  // namespace qt
