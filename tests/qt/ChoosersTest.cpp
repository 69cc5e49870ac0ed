// SPDX-License-Identifier: MIT
#include "RecordingBinding.hpp"
#include "WindowFixture.hpp"

#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/StoredPreference.hpp"

#include <QColorDialog>
#include <QFontDialog>
#include <QTest>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace qt {
namespace {

using viewkit::Binding;
using viewkit::View;

using ChoosersTest = WindowFixture;

TEST_F(ChoosersTest, OpenChooserWritesEachChange) {
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
  ASSERT_EQ(colors.size(), 1U) << "intermediate values are not written";
  EXPECT_EQ(colors.back().green, 1);
  EXPECT_NEAR(colors.back().opacity, 0.5, 0.01);
  ASSERT_EQ(fonts.size(), 1U);
  EXPECT_EQ(fonts[0], (appkit::Font{"DejaVu Sans", "Bold", 20}));
}

// A font picker whose font is stored, so that others may change it.
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
  // Chooses a font as the lists of the dialog do.
  static void pick(QFontDialog& dialog, const QFont& font) {
    dialog.setCurrentFont(font);
    settle();
  }
  std::string stored(const char* key) const { return store->stringForKey(key).value_or(""); }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  StoredFontPicker picker;
};

TEST_F(FontPickerTest, OpensAtStoredFontAndFollowsChanges) {
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

TEST_F(FontPickerTest, FontWithoutStyleOpensInTheStyleThatItIsDrawnIn) {
  QFontDialog& dialog = openDialog();
  EXPECT_EQ(dialog.currentFont().styleName(), QFontInfo(QFont("DejaVu Sans")).styleName());
  EXPECT_FALSE(dialog.currentFont().italic());
  QFont larger = dialog.currentFont();
  larger.setPointSize(20);
  pick(dialog, larger);
  EXPECT_EQ(stored("picker_style"), "") << "only the size was chosen";
}

TEST_F(FontPickerTest, ChoosingFamilyOrStyleKeepsSize) {
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

TEST_F(FontPickerTest, ChoosingSizeKeepsFamilyThatIsNotInstalled) {
  store->setObject("A Font of Elsewhere", "picker_family");
  QFontDialog& dialog = openDialog();
  QFont larger = dialog.currentFont();
  larger.setPointSize(20);
  pick(dialog, larger);
  EXPECT_EQ(stored("picker_family"), "A Font of Elsewhere");
  EXPECT_EQ(*picker.size, 20);
}

TEST_F(FontPickerTest, EscapeBringsBackTheFormerFontAndReturnKeepsTheNewOne) {
  for (const bool keeps : {false, true}) {
    QFontDialog& dialog = openDialog();
    QFont other = dialog.currentFont();
    other.setFamilies({"DejaVu Serif"});
    other.setPointSize(20);
    pick(dialog, other);
    EXPECT_EQ(stored("picker_family"), "DejaVu Serif") << "each change shows at once";
    QTest::keyClick(&dialog, keeps ? Qt::Key_Return : Qt::Key_Escape);
    settle();
    EXPECT_EQ(topLevel().findChild<QFontDialog*>(), nullptr);
    EXPECT_EQ(stored("picker_family"), keeps ? "DejaVu Serif" : "DejaVu Sans");
    EXPECT_EQ(*picker.size, keeps ? 20 : 9.75);
  }
}

TEST_F(FontPickerTest, EscapeKeepsAFontOfElsewhere) {
  QFontDialog& dialog = openDialog();
  QFont other = dialog.currentFont();
  other.setPointSize(20);
  pick(dialog, other);
  *picker.size = 31;
  QTest::keyClick(&dialog, Qt::Key_Escape);
  settle();
  EXPECT_EQ(*picker.size, 31);
}

TEST_F(ChoosersTest, EscapeInColorChooserRestoresFormerColor) {
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
    EXPECT_TRUE(colors.empty()) << "no color was picked";

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

}  // namespace
}  // namespace qt
