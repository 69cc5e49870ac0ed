#pragma once

#include "foundation/UserDefaults.hpp"
#include "qt/Window.hpp"
#include "viewkit/View.hpp"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

namespace qt {

class Application;

// A real window on Qt's offscreen platform; its controls are found the way assistive technology
// does.
class WindowFixture : public testing::Test {
protected:
  static void SetUpTestSuite() { application(); }
  void TearDown() override;
  static Application& application();

  void open(viewkit::View root,
            viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight);
  // The window's default store, instead of an empty one.
  void useStore(QEVSettings::PreferencesStore& store) { store_ = &store; }
  // Lets everything happen that is waiting to.
  static void settle();

  // The first that has this role and, unless it is empty, this name; a test that asks for what is
  // not there fails.
  QAccessibleInterface& find(QAccessible::Role role, const QString& name = {}) const;
  std::vector<QAccessibleInterface*> findAll(QAccessible::Role role,
                                             const QString& name = {}) const;
  bool has(QAccessible::Role role, const QString& name = {}) const;
  QWidget& widget(QAccessible::Role role, const QString& name = {}) const;
  // As a person does: the pointer on the middle of it, and keys for whatever has the keyboard.
  void click(const QAccessibleInterface& target) const;
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
  void type(const QString& text) const;

  QWidget& topLevel() const { return *topLevel_; }
  Window& window() const { return *window_; }
  // Closes and destroys it.
  void destroyWindow();

private:
  std::unique_ptr<foundation::UserDefaults> empty_ = foundation::UserDefaults::inMemory();
  QEVSettings::PreferencesStore* store_ = empty_.get();
  std::unique_ptr<Window> window_;
  QWidget* topLevel_ = nullptr;
};

}  // namespace qt
