// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "foundation/ObservableObject.hpp"
#include "headless/Window.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Each test runs twice: in the headless window and in the Qt window.
namespace qt {
namespace {

using appkit::Event;
using headless::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;
using viewkit::View;

enum class Page { first, second };

struct Form : foundation::ObservableObject {
  foundation::Published<std::string> text{*this, "stored"};
  foundation::Published<std::string> problem{*this, ""};
  foundation::Published<Page> page{*this, Page::first};
  foundation::Published<bool> hasField{*this, true};
  foundation::Published<bool> helpIsShown{*this, false};
  bool refuses = false;
  std::vector<std::string> journal;

  void commit() {
    journal.push_back("commit " + text.get());
    problem = refuses ? "wrong" : "";
  }
};

template <class T>
viewkit::Binding<T> bound(const std::shared_ptr<Form>& form,
                          foundation::Published<T> Form::*member) {
  return {[=] { return ((*form).*member).get(); },
          [=](T value) { (*form).*member = std::move(value); }};
}

struct FormView {
  viewkit::ObservedObject<Form> model;

  View body() const {
    const std::shared_ptr<Form> form = model.get();
    const auto note = [form](const char* what) {
      return [form, what] { form->journal.emplace_back(what); };
    };
    const auto items = [note] {
      return std::vector<viewkit::MenuItem>{{"TCP", note("TCP")}, {"UDP", note("UDP")}};
    };
    const View field =
        viewkit::TextField({.problem = form->problem}, bound(form, &Form::text), [form] {
          form->commit();
        }).accessibilityLabel("Ports");
    const View first =
        viewkit::VStack({},
                        {
                            form->hasField ? field : View{},
                            viewkit::PopUpMenu("TCP", items).accessibilityLabel("Source"),
                            viewkit::HelpButton([form] { form->helpIsShown = true; })
                                .popover(bound(form, &Form::helpIsShown),
                                         [] { return View(viewkit::Text("Help")); }),
                        })
            .onDisappear(note("gone"));
    return viewkit::TabView<Page>(bound(form, &Form::page), {{Page::first, "First", "clock", first},
                                                             {Page::second, "Second", "globe",
                                                              viewkit::Text("second page")}});
  }
};

enum class Kind { headless, qt };

class BothWindowsTest : public WindowFixture, public testing::WithParamInterface<Kind> {
protected:
  bool isHeadless() const { return GetParam() == Kind::headless; }

  void show() {
    form = std::make_shared<Form>();
    refused.clear();
    if (isHeadless()) {
      window_ = std::make_unique<headless::Window>(
          View(FormView{form}),
          viewkit::Environment{.defaultStore = *store_, .reducedMotion = true},
          headless::WindowOptions{.size = viewkit::Size{400, 300}});
    } else {
      open(FormView{form});
      window().onRefusedTexts([this](const auto& texts) { refused = texts; });
    }
  }

  void update() { isHeadless() ? window_->settle() : settle(); }

  // Gives the focus to the control with this role.
  void focus(Role role) {
    if (isHeadless()) {
      window_->click(window_->find(role));
    } else {
      widget(role == Role::textField ? QAccessible::EditableText : QAccessible::ButtonMenu)
          .setFocus();
      settle();
    }
  }

  void key(Key key, std::uint8_t modifiers = Event::none) {
    if (isHeadless()) {
      window_->press(key, modifiers);
      return;
    }
    static const std::vector<std::pair<Key, Qt::Key>> keys = {{Key::enter, Qt::Key_Return},
                                                              {Key::escape, Qt::Key_Escape},
                                                              {Key::tab, Qt::Key_Tab},
                                                              {Key::space, Qt::Key_Space},
                                                              {Key::downArrow, Qt::Key_Down},
                                                              {Key::upArrow, Qt::Key_Up},
                                                              {Key::pageUp, Qt::Key_PageUp},
                                                              {Key::pageDown, Qt::Key_PageDown},
                                                              {Key::f1, Qt::Key_F1},
                                                              {Key::f4, Qt::Key_F4},
                                                              {Key::w, Qt::Key_W}};
    Qt::KeyboardModifiers held;
    if (modifiers & Event::shift) held |= Qt::ShiftModifier;
    if (modifiers & Event::control) held |= Qt::ControlModifier;
    if (modifiers & Event::option) held |= Qt::AltModifier;
    const auto found = std::ranges::find(keys, key, &std::pair<Key, Qt::Key>::first);
    const bool isBacktab = key == Key::tab && (modifiers & Event::shift);
    press(isBacktab ? Qt::Key_Backtab : found->second, held);
  }

  // Replaces the text in the field.
  void typeText(const std::string& text) {
    focus(Role::textField);
    if (isHeadless()) {
      window_->selectAll();
      window_->type(text);
    } else {
      press(Qt::Key_A, Qt::ControlModifier);
      type(QString::fromStdString(text));
    }
  }

  std::string fieldText() const {
    return isHeadless() ? window_->find(Role::textField).value()
                        : find(QAccessible::EditableText).text(QAccessible::Value).toStdString();
  }
  bool shows(const char* text) const {
    return isHeadless() ? window_->findText(text).exists() : has(QAccessible::StaticText, text);
  }
  bool menuIsOpen() const {
    return isHeadless() ? window_->isMenuOpen() : QApplication::activePopupWidget() != nullptr;
  }
  bool windowIsOpen() const { return isHeadless() ? window_->isOpen() : window().isOpen(); }

  void closeWindow() {
    if (isHeadless()) {
      window_->close();
    } else {
      window().close();
      settle();
    }
    noteRefused();
  }
  void noteRefused() {
    if (isHeadless()) refused = window_->refusedTexts();
  }
  void destroy() { isHeadless() ? window_.reset() : destroyWindow(); }

  std::shared_ptr<Form> form;
  std::vector<viewkit::RefusedText> refused;

private:
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  std::unique_ptr<headless::Window> window_;
};

TEST_P(BothWindowsTest, ChangedTextIsCommittedOnceWhicheverWayItIsLeft) {
  const struct {
    const char* way;
    std::function<void()> leave;
    bool pageDisappears;
  } ways[] = {
      {"Return", [&] { key(Key::enter); }, false},
      {"Tab", [&] { key(Key::tab); }, false},
      {"the field is taken away", [&] { form->hasField = false; }, false},
      {"Ctrl+Tab", [&] { key(Key::tab, Event::control); }, true},
      {"another page is shown", [&] { form->page = Page::second; }, true},
      {"Ctrl+W", [&] { key(Key::w, Event::control); }, true},
      {"the window closes", [&] { closeWindow(); }, true},
      {"the window is destroyed", [&] { destroy(); }, true},
  };
  for (const auto& [way, leave, pageDisappears] : ways) {
    SCOPED_TRACE(way);
    show();
    typeText("80");
    EXPECT_THAT(form->journal, IsEmpty());
    leave();
    if (form->page == Page::second || !pageDisappears) update();
    // The text is committed before the handlers of disappearance run.
    const std::vector<std::string> committed{"commit 80"};
    const std::vector<std::string> committedAndGone{"commit 80", "gone"};
    EXPECT_EQ(form->journal, pageDisappears ? committedAndGone : committed);
    destroy();
    EXPECT_EQ(form->journal, committedAndGone);
  }
}

TEST_P(BothWindowsTest, RefusedTextStaysOnItsPageAndIsReportedAtClosing) {
  show();
  form->refuses = true;
  typeText("x");
  key(Key::tab, Event::control);
  EXPECT_TRUE(shows("second page"));
  key(Key::tab, Event::control);
  EXPECT_EQ(fieldText(), "x");
  EXPECT_EQ(form->problem.get(), "wrong");
  key(Key::tab, Event::control);
  closeWindow();
  EXPECT_THAT(refused,
              ElementsAre(viewkit::RefusedText{.label = "Ports", .text = "x", .problem = "wrong"}))
      << "a hidden page is asked too";

  show();
  form->refuses = true;
  typeText("y");
  closeWindow();
  EXPECT_THAT(refused,
              ElementsAre(viewkit::RefusedText{.label = "Ports", .text = "y", .problem = "wrong"}))
      << "what closing refuses is told as well";

  show();
  typeText("80");
  closeWindow();
  EXPECT_THAT(refused, IsEmpty());
}

TEST_P(BothWindowsTest, FirstEscapeRestoresStoredTextAndSecondCloses) {
  show();
  typeText("80");
  key(Key::escape);
  EXPECT_EQ(fieldText(), "stored");
  EXPECT_TRUE(windowIsOpen());
  key(Key::escape);
  EXPECT_FALSE(windowIsOpen());
  EXPECT_THAT(form->journal, ElementsAre("gone")) << "nothing is committed";
  destroy();

  show();
  form->refuses = true;
  typeText("x");
  key(Key::enter);
  typeText("xy");
  key(Key::escape);
  EXPECT_EQ(fieldText(), "stored") << "not the text that was refused";
}

TEST_P(BothWindowsTest, EscapeClosesPopoverBeforeRestoringText) {
  show();
  typeText("80");
  key(Key::f1);
  EXPECT_TRUE(shows("Help"));
  key(Key::escape);
  EXPECT_FALSE(shows("Help"));
  EXPECT_EQ(fieldText(), "80");
  key(Key::escape);
  EXPECT_EQ(fieldText(), "stored");
}

TEST_P(BothWindowsTest, ControlTabAndControlPageKeysChangeTabs) {
  show();
  const struct {
    Key key;
    std::uint8_t modifiers;
    Page page;
  } steps[] = {
      {Key::tab, Event::control, Page::second},
      {Key::tab, Event::control, Page::first},
      {Key::tab, Event::control | Event::shift, Page::second},
      {Key::pageUp, Event::control, Page::first},
      {Key::pageDown, Event::control, Page::second},
  };
  for (const auto& step : steps) {
    if (form->page == Page::first) focus(Role::textField);
    key(step.key, step.modifiers);
    EXPECT_EQ(form->page.get(), step.page);
  }
}

TEST_P(BothWindowsTest, ArrowKeysWithoutModifierDoNotOpenMenu) {
  show();
  focus(Role::menuButton);
  key(Key::downArrow);
  key(Key::upArrow);
  EXPECT_FALSE(menuIsOpen());
  const std::pair<Key, std::uint8_t> opening[] = {{Key::space, Event::none},
                                                  {Key::enter, Event::none},
                                                  {Key::downArrow, Event::option},
                                                  {Key::f4, Event::none}};
  for (const auto& [opens, modifiers] : opening) {
    key(opens, modifiers);
    ASSERT_TRUE(menuIsOpen());
    key(Key::downArrow);
    key(Key::enter);
    EXPECT_FALSE(menuIsOpen());
    EXPECT_THAT(std::exchange(form->journal, {}), ElementsAre("UDP"));
  }
}

TEST_P(BothWindowsTest, AltDownOnAMenuReachesNoMonitor) {
  int presses = 0;
  const auto monitor = Event::addLocalMonitorForEventsMatchingMask(
      Event::kKeyDownMask, [&](const Event& event) -> std::optional<Event> {
        if (event.keyCode != Event::kDownArrow) return event;
        ++presses;
        form->page = Page::second;
        return event;
      });
  show();
  focus(Role::menuButton);
  key(Key::downArrow, Event::option);
  EXPECT_EQ(presses, 0);
  EXPECT_TRUE(menuIsOpen());
  key(Key::escape);
  EXPECT_FALSE(menuIsOpen());
  key(Key::downArrow);
  EXPECT_EQ(presses, 1) << "a plain arrow does";
  EXPECT_EQ(form->page.get(), Page::second);
  Event::removeMonitor(monitor);
}

TEST_P(BothWindowsTest, MenuAndPopoverCloseWithTheirControl) {
  show();
  focus(Role::menuButton);
  key(Key::f4);
  ASSERT_TRUE(menuIsOpen());
  form->page = Page::second;
  update();
  EXPECT_FALSE(menuIsOpen());
  key(Key::downArrow);
  key(Key::enter);
  EXPECT_THAT(form->journal, ElementsAre("gone"));

  form->page = Page::first;
  update();
  key(Key::f1);
  form->page = Page::second;
  update();
  form->page = Page::first;
  update();
  EXPECT_FALSE(shows("Help")) << "it does not come back with its page";
}

INSTANTIATE_TEST_SUITE_P(Windows, BothWindowsTest, testing::Values(Kind::headless, Kind::qt),
                         [](const auto& info) {
                           return info.param == Kind::headless ? "Headless" : "Qt";
                         });

}  // namespace
}  // namespace qt
