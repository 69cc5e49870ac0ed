// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "TestAnalyzers.hpp"
#include "qt/WindowFixture.hpp"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QLineEdit>
#include <QPaintEvent>
#include <QTest>
#include <QTextEdit>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace QEVSettings {
namespace {

using QEVDependencies::QEVError;
using support::wrote;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::string_view kSelectionKey = kAnalyzerSelectedIndex.name;
constexpr const char* kPortsKey = "com_velloquin_qev_test_protocols";
constexpr const char* kColorKey = "com_velloquin_qev_test_color";
constexpr const char* kUsesColorKey = "com_velloquin_qev_test_usesColor";
constexpr const char* kOptionKey = "com_velloquin_qev_test_checksums";
constexpr const char* kOption = "Compute checksums";

// The Analyzer page in a real window, used with mouse and keyboard. The journal records the calls
// of the ports controller, the writes of the list and the notifications in the order in which they
// happen.
class AnalyzerDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    preferences->config = {
        .toggles = {{.id = "1", .defaultsKey = kOptionKey, .labelKey = kOption}},
        .color = QEVDependencies::AnalyzerColorSpec{.colorKey = kColorKey,
                                                    .usesColorKey = kUsesColorKey},
        .ports = {{.networkProtocolKey = kPortsKey,
                   .defaultProtocolNames = {"HTTP", "Proxy"},
                   .defaultPorts = {protocol("HTTP", "80", 1), protocol("Proxy", "3128", 1)}}}};
    plugIns.load("Web", preferences);
    plugIns.load("Bare");
    plugIns.load("Third");
    useStore(store);
    WindowFixture::open(settingsView(QEVSettingsView::Tabs::analyze));
    store.forget();
  }
  void TearDown() override {
    WindowFixture::TearDown();
    preferences->refuse = nullptr;
  }

  std::string selected() const {
    std::string titles;
    for (auto* item : findAll(QAccessible::ListItem)) {
      if (item->state().selected) titles += item->text(QAccessible::Name).toStdString();
    }
    return titles;
  }

  QAccessibleInterface& field(std::size_t row) const {
    return *findAll(QAccessible::EditableText).at(row);
  }
  std::string shown(std::size_t row) const {
    return field(row).text(QAccessible::Value).toStdString();
  }
  std::vector<std::string> stored() {
    std::vector<std::string> texts;
    for (const auto& each :
         QEVModels::AnalyzerPortsStore(kPortsKey, store.underneath()).decode({})) {
      texts.push_back(each->protocolName.get() + " " + each->protocolPorts.get());
    }
    return texts;
  }
  std::vector<std::string> said() const {
    std::vector<std::string> texts;
    for (auto* each : findAll(QAccessible::AlertMessage))
      texts.push_back(each->text(QAccessible::Name).toStdString());
    return texts;
  }

  void write(std::size_t row, const QString& text) {
    click(field(row));
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
  }

  LoadedPlugIns plugIns;
  Journal journal;
  std::shared_ptr<PortsPreferences> preferences = std::make_shared<PortsPreferences>(journal);

private:
  PortsWatch watch_{journal, store, kPortsKey};
};

TEST_F(AnalyzerDesktopTest, ArrowsAndClicksMoveTheSelection) {
  EXPECT_EQ(selected(), "Web");
  for (const auto& [key, title] : {std::pair{Qt::Key_Down, "Bare"},
                                   {Qt::Key_Down, "Third"},
                                   {Qt::Key_Down, "Web"},
                                   {Qt::Key_Up, "Web"},
                                   {Qt::Key_Down, "Bare"}}) {
    press(key);
    EXPECT_EQ(selected(), title);
  }
  click(find(QAccessible::ListItem, "Third"));
  EXPECT_EQ(selected(), "Third");
  EXPECT_EQ(store.underneath().integerForKey(kSelectionKey), 2);
  EXPECT_FALSE(has(QAccessible::EditableText)) << "an analyzer without ports";

  click(find(QAccessible::ListItem, "Web"));
  click(field(0));
  press(Qt::Key_Down);
  EXPECT_EQ(selected(), "Web") << "in a text field the arrows move the caret";
}

TEST_F(AnalyzerDesktopTest, OptionIsSwitchedByTextSwitchAndKeyboard) {
  click(find(QAccessible::StaticText, kOption));
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kOptionKey, true)));
  EXPECT_TRUE(find(QAccessible::CheckBox, kOption).state().checked);

  click(find(QAccessible::CheckBox, kOption));
  EXPECT_FALSE(store.underneath().boolForKey(kOptionKey));

  widget(QAccessible::CheckBox, kOption).setFocus();
  press(Qt::Key_Space);
  EXPECT_TRUE(store.underneath().boolForKey(kOptionKey));
  EXPECT_EQ(store.changes().size(), 3U);
}

// Collects the region of a window that is painted while this lives.
class PaintWatch : public QObject {
public:
  explicit PaintWatch(const QWidget& window) : window_(window) { qApp->installEventFilter(this); }

  QRegion painted() const { return painted_; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget && window_.isAncestorOf(widget)) {
      const QRegion region = static_cast<const QPaintEvent*>(event)->region();
      painted_ += region.translated(widget->mapTo(&window_, QPoint()));
    }
    return false;
  }

private:
  const QWidget& window_;
  QRegion painted_;
};

TEST_F(AnalyzerDesktopTest, OnlyTheChangedControlIsRepainted) {
  // Glyphs and focus rings are painted outside of their frame.
  constexpr QMargins overhang(8, 8, 8, 8);
  const auto placeOf = [&](const QAccessibleInterface& shown) {
    return QRect(topLevel().mapFromGlobal(shown.rect().topLeft()), shown.rect().size()) + overhang;
  };
  const QRect option = placeOf(find(QAccessible::StaticText, kOption)) |
                       placeOf(find(QAccessible::CheckBox, kOption));
  const QRect row(placeOf(find(QAccessible::StaticText, "Packet coloring")).left() - 40,
                  option.top(), topLevel().width(), option.height());
  const auto flip = [&] { click(find(QAccessible::CheckBox, kOption)); };
  const struct {
    const char* what;
    std::function<void()> prepare;
    std::function<void()> act;
    QRect within;
  } events[] = {
      {"a hover", [] {}, [&] { QTest::mouseMove(topLevel().windowHandle(), option.center()); },
       row},
      {"a switch", flip, flip, row},
      {"a key", [&] { click(field(0)); }, [&] { type("1"); }, placeOf(field(0))},
  };
  for (const auto& event : events) {
    SCOPED_TRACE(event.what);
    event.prepare();
    settle();
    const PaintWatch watch(topLevel());
    event.act();
    settle();
    EXPECT_FALSE(watch.painted().isEmpty());
    const QRegion beside = watch.painted() - event.within;
    EXPECT_TRUE(beside.isEmpty()) << beside.boundingRect().x() << ' ' << beside.boundingRect().y()
                                  << ' ' << beside.boundingRect().width() << " x "
                                  << beside.boundingRect().height();
  }
}

TEST_F(AnalyzerDesktopTest, PickedColourIsStoredAtOnce) {
  click(find(QAccessible::PushButton, "Packet coloring"));
  auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeWindow());
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->testOption(QColorDialog::ShowAlphaChannel));
  auto* hex = dialog->findChild<QLineEdit*>();
  ASSERT_NE(hex, nullptr);
  hex->selectAll();
  QTest::keyClicks(hex, "#336699");
  settle();
  const auto color =
      QEVCommonTools::colorFromRawValue(store.underneath().stringForKey(kColorKey).value_or(""));
  ASSERT_TRUE(color);
  EXPECT_NEAR(color->red, 0.2, 0.01);
  EXPECT_NEAR(color->green, 0.4, 0.01);
  EXPECT_NEAR(color->blue, 0.6, 0.01);
  EXPECT_FALSE(store.underneath().objectForKey(kUsesColorKey))
      << "choosing a colour does not turn colouring on";
  dialog->close();

  click(find(QAccessible::StaticText, "Packet coloring"));
  EXPECT_TRUE(store.underneath().boolForKey(kUsesColorKey));
}

TEST_F(AnalyzerDesktopTest, EscapeInTheColourChooserLeavesTheStoreAsItWas) {
  const auto escapeFromChooser = [this](const char* typed, const char* elsewhere = "") {
    click(find(QAccessible::PushButton, "Packet coloring"));
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeWindow());
    ASSERT_NE(dialog, nullptr);
    auto* hex = dialog->findChild<QLineEdit*>();
    if (*typed != '\0') {
      hex->selectAll();
      QTest::keyClicks(hex, typed);
      settle();
      EXPECT_FALSE(store.changes().empty());
    }
    if (*elsewhere != '\0') {
      store.underneath().setObject(elsewhere, kColorKey);
      settle();
    }
    QTest::keyClick(dialog, Qt::Key_Escape);
    settle();
  };
  escapeFromChooser("");
  EXPECT_THAT(store.changes(), IsEmpty());
  escapeFromChooser("#336699");
  EXPECT_FALSE(store.underneath().objectForKey(kColorKey)) << "no colour was stored before";

  store.underneath().setObject("no colour", kColorKey);
  settle();
  escapeFromChooser("#336699");
  EXPECT_EQ(store.underneath().stringForKey(kColorKey), "no colour");

  // Another process chooses a colour while the chooser is open.
  escapeFromChooser("#336699", "a colour of elsewhere");
  EXPECT_EQ(store.underneath().stringForKey(kColorKey), "a colour of elsewhere");
}

TEST_F(AnalyzerDesktopTest, KeyThatOpensAMenuLeavesTheSelectionAlone) {
  for (const auto& [key, modifiers] :
       {std::pair{Qt::Key_Down, Qt::KeyboardModifiers(Qt::AltModifier)}, {Qt::Key_F4, {}}}) {
    widget(QAccessible::ButtonMenu, "Source").setFocus();
    press(key, modifiers);
    QWidget* const popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(selected(), "Web");
    popup->close();
    settle();
  }
  widget(QAccessible::ButtonMenu, "Source").setFocus();
  press(Qt::Key_Down);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(selected(), "Bare");
}

TEST_F(AnalyzerDesktopTest, ReturnCommitsPortsInTheirNormalForm) {
  write(0, "81, x, 70000, 81");
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(stored(), IsEmpty());
  press(Qt::Key_Return);
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 81 1, ports", "store", "notify 9",
                                   "notify 3"));
  EXPECT_EQ(shown(0), "81");
  EXPECT_THAT(stored(), ElementsAre("HTTP 81", "Proxy 3128"));
  EXPECT_THAT(said(), ElementsAre(testing::AllOf(HasSubstr("“x”"), HasSubstr("“70000”"),
                                                 HasSubstr("“81”"))));

  press(Qt::Key_A, Qt::ControlModifier);
  type("82");
  press(Qt::Key_Tab);
  EXPECT_THAT(stored(), ElementsAre("HTTP 82", "Proxy 3128"))
      << "leaving the field commits as well";
  EXPECT_THAT(said(), IsEmpty());
}

TEST_F(AnalyzerDesktopTest, NameAndSourceArePickedFromTheirMenus) {
  const auto pick = [this](const char* menu, Qt::Key key) {
    click(find(QAccessible::ButtonMenu, menu));
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QWidget& list = popup->focusWidget() ? *popup->focusWidget() : *popup;
    QTest::keyClick(&list, key);
    QTest::keyClick(&list, Qt::Key_Return);
    settle();
  };
  pick("Name", Qt::Key_Down);
  EXPECT_EQ(find(QAccessible::ButtonMenu, "Name").text(QAccessible::Value), "Proxy");
  pick("Source", Qt::Key_Down);
  EXPECT_EQ(find(QAccessible::ButtonMenu, "Source").text(QAccessible::Value), "UDP");
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by Proxy 80 1, name", "store", "notify 9",
                                   "notify 3", "replace Proxy 80 1 by Proxy 80 2, source", "store",
                                   "notify 9", "notify 3"));
  EXPECT_THAT(stored(), ElementsAre("Proxy 80", "Proxy 3128"));
}

TEST_F(AnalyzerDesktopTest, RefusedPortsStayWithTheirError) {
  write(0, "none");
  press(Qt::Key_Return);
  EXPECT_THAT(said(), ElementsAre(StartsWith("Error")));
  EXPECT_EQ(shown(0), "none");
  EXPECT_THAT(journal, IsEmpty());

  preferences->refuse = [] { throw QEVError::analyzerRefusedChange; };
  write(0, "90");
  press(Qt::Key_Return);
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 90 1, ports"));
  EXPECT_THAT(said(), ElementsAre(HasSubstr(message(QEVError::analyzerRefusedChange))));
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(AnalyzerDesktopTest, ResetStoresTheFactoryList) {
  write(0, "90");
  press(Qt::Key_Return);
  journal.clear();
  click(find(QAccessible::PushButton, "Reset"));
  EXPECT_THAT(journal, ElementsAre("replace HTTP 90 1 by HTTP 80 1, ports",
                                   "replace Proxy 3128 1 by Proxy 3128 1, ports",
                                   "set default settings", "store", "notify 9", "notify 3"));
  EXPECT_EQ(shown(0), "80");
  EXPECT_THAT(stored(), ElementsAre("HTTP 80", "Proxy 3128"));
}

TEST_F(AnalyzerDesktopTest, TypedPortsAreCommittedOnceHoweverThePageIsLeft) {
  const std::vector<std::pair<std::string, std::function<void()>>> ways{
      {"another analyzer", [this] { click(find(QAccessible::ListItem, "Bare")); }},
      {"another tab", [this] { press(Qt::Key_Tab, Qt::ControlModifier); }},
      {"the window closes", [this] { press(Qt::Key_W, Qt::ControlModifier); }},
      {"the window is destroyed", [this] { destroyWindow(); }},
  };
  for (const auto& [name, leave] : ways) {
    SCOPED_TRACE(name);
    store.underneath().removeObject(kPortsKey);
    store.underneath().setInteger(0, kSelectionKey);
    WindowFixture::open(settingsView(QEVSettingsView::Tabs::analyze));
    write(1, "99,98");
    journal.clear();
    leave();
    settle();
    EXPECT_THAT(journal, ElementsAre("replace Proxy 3128 1 by Proxy 98,99 1, ports", "store",
                                     "notify 9", "notify 3"));
  }
}

TEST_F(AnalyzerDesktopTest, MillionPastedCharactersAreAllValidated) {
  std::string ports;
  while (ports.size() < 1'000'000) ports += "x" + std::to_string(ports.size()) + ", 443 ";
  QGuiApplication::clipboard()->setText(QString::fromStdString(ports + "8443"));
  click(field(0));
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_LT(dynamic_cast<QTextEdit&>(*field(0).object()).document()->characterCount(), 10'000);
  press(Qt::Key_Return);
  EXPECT_THAT(stored(), ElementsAre("HTTP 443,8443", "Proxy 3128"));
  EXPECT_EQ(shown(0), "443,8443");
  ASSERT_EQ(said().size(), 1U);
  EXPECT_LT(said().front().size(), 500U);
}

}  // namespace
}  // namespace QEVSettings
