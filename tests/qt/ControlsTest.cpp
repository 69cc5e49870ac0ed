#include "WindowFixture.hpp"

#include "appkit/Event.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/Text.hpp"

#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QListView>
#include <QMouseEvent>
#include <QTabBar>
#include <QTest>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace qt {
namespace {

using viewkit::Binding;
using viewkit::View;

using ControlsTest = WindowFixture;

// A binding that writes down what it is set to.
template <class T>
Binding<T> recording(std::vector<T>& writes, T shown) {
  return {[shown] { return shown; }, [&writes](T value) { writes.push_back(std::move(value)); }};
}

TEST_F(ControlsTest, ButtonsArePressedByMouseAndKeyboard) {
  std::vector<std::string> pressed;
  open(viewkit::VStack(
      {}, {viewkit::Button("push", [&] { pressed.push_back("push"); }),
           viewkit::PlainButton(viewkit::Text("plain"), [&] { pressed.push_back("plain"); })
               .accessibilityLabel("plain"),
           viewkit::Button("off", [&] { pressed.push_back("off"); }).disabled(true)}));
  for (const char* name : {"push", "plain", "off"}) {
    QWidget& button = widget(QAccessible::PushButton, name);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
  }
  EXPECT_EQ(pressed, (std::vector<std::string>{"push", "push", "push", "plain", "plain", "plain"}));
}

TEST_F(ControlsTest, ASwitchAsksForTheOtherValueAndShowsWhatItsViewSays) {
  std::vector<bool> writes;
  open(viewkit::Toggle(recording(writes, false)).accessibilityLabel("switch"));
  QWidget& toggle = widget(QAccessible::CheckBox, "switch");
  QTest::mouseClick(&toggle, Qt::LeftButton);
  QTest::keyClick(&toggle, Qt::Key_Space);
  settle();
  EXPECT_EQ(writes, (std::vector<bool>{true, true})) << "the view never took the value over";
  EXPECT_FALSE(find(QAccessible::CheckBox, "switch").state().checked);
}

// A press and a release, nothing in between; the second of a double click.
void pressQuickly(QWidget& widget, QEvent::Type press) {
  const QPointF middle = QRectF(widget.rect()).center();
  for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

TEST_F(ControlsTest, EachOfSeveralPressesWithinOneTurnOfTheQueueCounts) {
  struct Pressed {
    std::shared_ptr<std::vector<std::string>> writes;
    viewkit::State<bool> isOn = false;
    viewkit::State<int> taps = 0;
    View body() const {
      const Binding<bool> flag([self = *this] { return self.isOn.get(); },
                               [self = *this](bool on) {
                                 self.isOn.set(on);
                                 self.writes->push_back(on ? "on" : "off");
                               });
      const auto tap = [self = *this, shown = taps.get()] {
        self.taps.set(shown + 1);
        self.writes->push_back("tap " + std::to_string(shown + 1));
      };
      return viewkit::VStack(
          {}, {viewkit::Toggle(flag).accessibilityLabel("switch"),
               viewkit::PlainButton(viewkit::Text("plain"), tap).accessibilityLabel("plain"),
               viewkit::Text("row")
                   .frame(viewkit::FixedFrame{.width = 300, .height = 200})
                   .onTap(tap)});
    }
  };
  const auto writes = std::make_shared<std::vector<std::string>>();
  open(Pressed{.writes = writes});
  const auto pressed = [&](QWidget& target) {
    writes->clear();
    pressQuickly(target, QEvent::MouseButtonPress);
    pressQuickly(target, QEvent::MouseButtonDblClick);
    pressQuickly(target, QEvent::MouseButtonPress);
    return *writes;
  };
  EXPECT_EQ(pressed(widget(QAccessible::CheckBox, "switch")),
            (std::vector<std::string>{"on", "off", "on"}));
  EXPECT_EQ(pressed(widget(QAccessible::PushButton, "plain")),
            (std::vector<std::string>{"tap 1", "tap 2", "tap 3"}));
  EXPECT_EQ(pressed(topLevel()), (std::vector<std::string>{"tap 4", "tap 5", "tap 6"}))
      << "a painted row";
}

enum class Page { first, second };

struct Tabs {
  viewkit::State<Page> page = Page::first;
  View body() const {
    return viewkit::TabView(
        page.binding(),
        std::vector<viewkit::Tab<Page>>{{Page::first, "First", "clock", viewkit::Text("one")},
                                        {Page::second, "Second", "globe", viewkit::Text("two")}});
  }
};

TEST_F(ControlsTest, TheTabBarShowsThePageThatIsChosen) {
  open(Tabs{});
  auto* bar = topLevel().findChild<QTabBar*>();
  ASSERT_NE(bar, nullptr);
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  settle();
  EXPECT_TRUE(has(QAccessible::StaticText, "two"));
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_Left);
  settle();
  EXPECT_TRUE(has(QAccessible::StaticText, "one"));
  EXPECT_FALSE(has(QAccessible::StaticText, "two"));
  EXPECT_TRUE(find(QAccessible::PageTab, "First").state().selected);
}

class MenuTest : public WindowFixture {
protected:
  void SetUp() override {
    const auto items = [this] {
      ++asked;
      std::vector<viewkit::MenuItem> made;
      for (int i = 0; i < 600; ++i) {
        const std::string title = "Zone " + std::to_string(i);
        made.push_back({.title = i == 333 ? "Gulf of " + title : title,
                        .action = [this, title] { picked = title; }});
      }
      return made;
    };
    open(viewkit::VStack({}, {viewkit::PopUpMenu("Zone 400", items).accessibilityLabel("zone")}));
  }

  QListView& list() const {
    auto* popup = QApplication::activePopupWidget();
    auto* found = popup ? popup->findChild<QListView*>() : nullptr;
    if (!found) throw std::runtime_error("no menu is open");
    return *found;
  }

  int asked = 0;
  std::string picked;
};

TEST_F(MenuTest, OpensOnTheCurrentItemAndPicksWithTheKeyboard) {
  EXPECT_EQ(asked, 0);
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_Space);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(list().currentIndex().row(), 400);
  const QRect current = list().visualRect(list().currentIndex());
  EXPECT_GE(current.top(), 0);
  EXPECT_LE(current.bottom(), list().viewport()->height());

  QTest::keyClicks(&list(), "zone 7");
  EXPECT_EQ(list().currentIndex().row(), 7);
  QTest::keyClick(&list(), Qt::Key_Down);
  QTest::keyClick(&list(), Qt::Key_Return);
  EXPECT_EQ(picked, "Zone 8");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(MenuTest, KeepsItsKeysFromMonitors) {
  int seen = 0;
  const auto monitor = appkit::Event::addLocalMonitorForEventsMatchingMask(
      appkit::Event::kKeyDownMask, [&](const appkit::Event& event) {
        ++seen;
        return std::optional(event);
      });
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_F4);
  ASSERT_EQ(seen, 1);
  QTest::keyClick(&list(), Qt::Key_Down);
  QTest::keyClick(&list(), Qt::Key_Return);
  EXPECT_EQ(picked, "Zone 401");
  EXPECT_EQ(seen, 1);
  appkit::Event::removeMonitor(monitor);
}

TEST_F(MenuTest, FindsAWordInTheMiddleOfATitleToo) {
  QTest::keyClick(&widget(QAccessible::ButtonMenu, "zone"), Qt::Key_F4);
  QTest::keyClicks(&list(), "of");
  EXPECT_EQ(list().currentIndex().row(), 333);
  QTest::keyClick(&list(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(picked, "");
}

TEST_F(MenuTest, AssistiveTechnologyOpensItReadsItAndPicks) {
  QAccessibleInterface& button = find(QAccessible::ButtonMenu, "zone");
  ASSERT_EQ(button.childCount(), 0);
  button.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  settle();
  ASSERT_EQ(button.childCount(), 1) << "the menu is in what opened it";
  EXPECT_TRUE(button.state().expanded);
  QAccessibleInterface& menu = *button.child(0);
  EXPECT_EQ(menu.parent(), &button);
  EXPECT_TRUE(find(QAccessible::MenuItem, "Zone 400").state().focused);

  QAccessibleInterface& item = find(QAccessible::MenuItem, "Zone 7");
  EXPECT_TRUE(item.state().offscreen);
  item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  settle();
  EXPECT_EQ(picked, "Zone 7");
  EXPECT_EQ(button.childCount(), 0);
}

TEST_F(MenuTest, PicksWithTheMouseButNotByTheClickThatOpensIt) {
  QWidget& button = widget(QAccessible::ButtonMenu, "zone");
  QTest::mouseClick(&button, Qt::LeftButton);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(picked, "");
  list().scrollTo(list().model()->index(401, 0));
  QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                    list().visualRect(list().model()->index(401, 0)).center());
  EXPECT_EQ(picked, "Zone 401");
}

TEST_F(ControlsTest, ChoosersWriteWhileTheyAreOpen) {
  std::vector<appkit::RGBA> colors;
  std::vector<appkit::Font> fonts;
  open(viewkit::VStack(
      {},
      {viewkit::ColorWell(recording(colors, appkit::RGBA{1, 0, 0, 1}), {.supportsOpacity = true})
           .accessibilityLabel("color"),
       viewkit::FontChooser("font", recording(fonts, appkit::Font{"DejaVu Sans", "Bold", 11}))}));
  QTest::mouseClick(&widget(QAccessible::PushButton, "color"), Qt::LeftButton);
  QTest::mouseClick(&widget(QAccessible::PushButton, "font"), Qt::LeftButton);
  auto* colorDialog = topLevel().findChild<QColorDialog*>();
  auto* fontDialog = topLevel().findChild<QFontDialog*>();
  ASSERT_TRUE(colorDialog && fontDialog);
  EXPECT_EQ(colorDialog->currentColor(), QColor(Qt::red));
  EXPECT_EQ(fontDialog->currentFont().family(), "DejaVu Sans");
  EXPECT_TRUE(colors.empty() && fonts.empty()) << "opening a chooser chooses nothing";

  colorDialog->setCurrentColor(QColor(0, 255, 0, 128));
  QFont larger = fontDialog->currentFont();
  larger.setPointSize(20);
  fontDialog->setCurrentFont(larger);
  settle();
  ASSERT_EQ(colors.size(), 1U) << "a chooser tells what it settles on";
  EXPECT_EQ(colors.back().green, 1);
  EXPECT_NEAR(colors.back().opacity, 0.5, 0.01);
  ASSERT_EQ(fonts.size(), 1U);
  EXPECT_EQ(fonts[0], (appkit::Font{"DejaVu Sans", "Bold", 20}));
}

// A font that is stored, and may be changed elsewhere.
struct StoredFontPicker {
  viewkit::StoredPreference<std::string> family{"picker_family", "DejaVu Sans"};
  viewkit::StoredPreference<std::string> style{"picker_style", ""};
  std::shared_ptr<double> size = std::make_shared<double>(9.75);

  View body() const {
    return viewkit::FontChooser("font",
                                Binding<appkit::Font>(
                                    [self = *this] {
                                      return appkit::Font{self.family, self.style, *self.size};
                                    },
                                    [self = *this](const appkit::Font& font) {
                                      *self.size = font.pointSize;
                                      self.family.set(font.family);
                                      self.style.set(font.style);
                                    }));
  }
};

class FontPickerTest : public WindowFixture {
protected:
  void SetUp() override {
    useStore(*store);
    open(picker);
  }

  QFontDialog& openDialog() const {
    widget(QAccessible::PushButton, "font").setFocus();
    press(Qt::Key_Space);
    auto* dialog = topLevel().findChild<QFontDialog*>();
    if (!dialog) throw std::runtime_error("the font chooser is not open");
    return *dialog;
  }
  // As the lists of the dialog do.
  static void pick(QFontDialog& dialog, const QFont& font) {
    dialog.setCurrentFont(font);
    settle();
  }
  std::string stored(const char* key) const { return store->stringForKey(key).value_or(""); }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  StoredFontPicker picker;
};

TEST_F(FontPickerTest, OpensOnTheStoredFontAndFollowsIt) {
  store->setObject("DejaVu Serif", "picker_family");
  QFontDialog& dialog = openDialog();
  EXPECT_EQ(dialog.currentFont().family(), "DejaVu Serif");
  store->setObject("DejaVu Sans Mono", "picker_family");
  settle();
  EXPECT_EQ(dialog.currentFont().family(), "DejaVu Sans Mono");

  QFont larger = dialog.currentFont();
  larger.setPointSize(20);
  pick(dialog, larger);
  EXPECT_EQ(stored("picker_family"), "DejaVu Sans Mono") << "only the size was chosen";
  EXPECT_EQ(*picker.size, 20);
}

TEST_F(FontPickerTest, FontWithoutAStyleOpensInTheStyleThatItIsDrawnIn) {
  QFontDialog& dialog = openDialog();
  EXPECT_EQ(dialog.currentFont().styleName(), QFontInfo(QFont("DejaVu Sans")).styleName());
  EXPECT_FALSE(dialog.currentFont().italic());
  QFont larger = dialog.currentFont();
  larger.setPointSize(20);
  pick(dialog, larger);
  EXPECT_EQ(stored("picker_style"), "") << "only the size was chosen";
}

TEST_F(FontPickerTest, FamilyAndStyleLeaveTheSizeAlone) {
  QFontDialog& dialog = openDialog();
  QFont other = dialog.currentFont();
  other.setFamilies({"DejaVu Serif"});
  pick(dialog, other);
  EXPECT_EQ(stored("picker_family"), "DejaVu Serif");
  EXPECT_EQ(*picker.size, 9.75);
  other = dialog.currentFont();
  other.setPointSize(12);
  pick(dialog, other);
  EXPECT_EQ(*picker.size, 12);
}

TEST_F(FontPickerTest, SizeLeavesAFamilyAloneThatTheMachineLacks) {
  store->setObject("A Font of Elsewhere", "picker_family");
  QFontDialog& dialog = openDialog();
  QFont larger = dialog.currentFont();
  larger.setPointSize(20);
  pick(dialog, larger);
  EXPECT_EQ(stored("picker_family"), "A Font of Elsewhere");
  EXPECT_EQ(*picker.size, 20);
}

TEST_F(ControlsTest, PopUpButtonWithoutTitleIsSeenAndOpens) {
  std::string picked;
  open(viewkit::PopUpMenu("", [&] {
         return std::vector<viewkit::MenuItem>{
             {.title = "Zone", .action = [&] { picked = "Zone"; }}};
       }).accessibilityLabel("zones"));
  QWidget& button = widget(QAccessible::ButtonMenu, "zones");
  EXPECT_TRUE(button.isVisible());
  EXPECT_GT(button.width(), 16);
  button.setFocus();
  press(Qt::Key_Space);
  QWidget* popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  QWidget& list = popup->focusWidget() ? *popup->focusWidget() : *popup;
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Return);
  settle();
  EXPECT_EQ(picked, "Zone");
}

TEST_F(ControlsTest, EscapeInAColourChooserBringsTheFirstColourBack) {
  const struct {
    const char* way;
    std::function<void(QColorDialog&)> leave;
    bool keeps;
  } ways[] = {
      {"Escape", [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, false},
      {"Return", [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }, true},
      {"the chooser is closed", [](QColorDialog& dialog) { dialog.close(); }, true},
  };
  for (const auto& [way, leave, keeps] : ways) {
    SCOPED_TRACE(way);
    std::vector<appkit::RGBA> colors;
    open(viewkit::ColorWell(recording(colors, appkit::RGBA{1, 0, 0, 1}))
             .accessibilityLabel("color"));
    const auto openChooser = [&]() -> QColorDialog& {
      QTest::mouseClick(&widget(QAccessible::PushButton, "color"), Qt::LeftButton);
      return *topLevel().findChild<QColorDialog*>();
    };
    leave(openChooser());
    settle();
    EXPECT_TRUE(colors.empty()) << "nothing was picked";

    QColorDialog& dialog = openChooser();
    dialog.setCurrentColor(Qt::green);
    settle();
    leave(dialog);
    settle();
    EXPECT_EQ(topLevel().findChild<QColorDialog*>(), nullptr);
    ASSERT_EQ(colors.size(), keeps ? 1U : 2U);
    EXPECT_EQ(colors.back(), keeps ? (appkit::RGBA{0, 1, 0, 1}) : (appkit::RGBA{1, 0, 0, 1}));
    destroyWindow();
  }
}

TEST_F(ControlsTest, FocusBringsWhatIsHiddenIntoSight) {
  open(viewkit::ScrollView(
      {},
      viewkit::VStack({}, {viewkit::forEach(
                              std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, [](int i) { return i; },
                              [](int i) {
                                return viewkit::Button("row " + std::to_string(i), [] {})
                                    .frame(viewkit::FixedFrame{.height = 100});
                              })})));
  QWidget& last = widget(QAccessible::PushButton, "row 9");
  EXPECT_TRUE(last.visibleRegion().isEmpty());
  widget(QAccessible::PushButton, "row 0").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  settle();
  EXPECT_TRUE(last.hasFocus());
  EXPECT_EQ(last.visibleRegion().boundingRect(), last.rect());
}

}  // namespace
}  // namespace qt
