// SPDX-License-Identifier: MIT
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

// A Qt window on the offscreen platform. Controls are found through their accessible interfaces.
class WindowFixture : public testing::Test {
protected:
  static void SetUpTestSuite() { application(); }
  void TearDown() override;
  static Application& application();

  void open(viewkit::View root,
            viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight);
  // Sets the default store of windows that are opened from now on. Without it, the store is empty.
  void useStore(QEVSettings::PreferencesStore& store) { store_ = &store; }
  // Handles all pending events and the main queue.
  static void settle();

  // The first interface with this role and, unless `name` is empty, this name. Throws when there is
  // none, which fails the test.
  QAccessibleInterface& find(QAccessible::Role role, const QString& name = {}) const;
  std::vector<QAccessibleInterface*> findAll(QAccessible::Role role,
                                             const QString& name = {}) const;
  bool has(QAccessible::Role role, const QString& name = {}) const;
  QWidget& widget(QAccessible::Role role, const QString& name = {}) const;
  // A click in the middle of the target, and keys for the widget that has the focus.
  void click(const QAccessibleInterface& target) const;
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
  void type(const QString& text) const;

  QWidget& topLevel() const { return *topLevel_; }
  Window& window() const { return *window_; }
  // Closes and destroys the window.
  void destroyWindow();

private:
  std::unique_ptr<foundation::UserDefaults> empty_ = foundation::UserDefaults::inMemory();
  QEVSettings::PreferencesStore* store_ = empty_.get();
  std::unique_ptr<Window> window_;
  QWidget* topLevel_ = nullptr;
};

}  // namespace qt
