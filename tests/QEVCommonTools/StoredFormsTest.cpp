// SPDX-License-Identifier: MIT
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "foundation/Base64.hpp"
#include "support/RecordingPreferencesStore.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace QEVCommonTools {
namespace {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

std::string base64OfDoubles(const std::vector<double>& values) {
  std::vector<std::uint8_t> bytes(values.size() * sizeof(double));
  std::memcpy(bytes.data(), values.data(), bytes.size());
  return foundation::base64Encoded(bytes);
}

TEST(ColorRawValueTest, DecodingTheTextGivesTheSameColour) {
  for (const appkit::RGBA& color : {
           appkit::RGBA{},
           appkit::RGBA{.red = 1, .green = 1, .blue = 1, .opacity = 0},
           appkit::RGBA{.red = 0.1, .green = 1.0 / 3, .blue = 5e-324, .opacity = 0.999999999999},
       }) {
    EXPECT_EQ(colorFromRawValue(rawValue(color)), color);
  }
}

TEST(ColorRawValueTest, IsTheBase64TextOfFourDoubles) {
  EXPECT_EQ(colorFromRawValue(base64OfDoubles({0.25, 0.5, 0.75, 1})),
            (appkit::RGBA{.red = 0.25, .green = 0.5, .blue = 0.75, .opacity = 1}));
}

TEST(ColorRawValueTest, RefusesTextThatIsNoColour) {
  const double infinite = std::numeric_limits<double>::infinity();
  const std::string good = rawValue({});
  for (const std::string& text : {
           std::string(),
           std::string("not base64 at all"),
           good.substr(0, good.size() - 4),
           good + "\n",
           base64OfDoubles({0, 0, 0}),
           base64OfDoubles({0, 0, 0, 0, 0}),
           base64OfDoubles({0, 0, 0, infinite}),
           base64OfDoubles({std::numeric_limits<double>::quiet_NaN(), 0, 0, 1}),
           base64OfDoubles({0, 1.0000001, 0, 1}),
           base64OfDoubles({0, 0, -0.1, 1}),
       }) {
    EXPECT_FALSE(colorFromRawValue(text)) << text;
  }
}

TEST(FontPreferencesTest, EachFontHasItsOwnKey) {
  support::RecordingPreferencesStore store;
  const FontPreferences fonts(store);
  const appkit::Font font{.family = "Some Serif", .style = "Bold Italic", .pointSize = 10.25};
  fonts.setCom_velloquin_zorvantine_fontProtocolDetails(font);
  ASSERT_EQ(store.changes().size(), 1U);
  EXPECT_EQ(store.changes().front().key, QEVSettings::kFontProtocolDetails.name);
  EXPECT_EQ(fonts.com_velloquin_zorvantine_fontProtocolDetails(), font);
  EXPECT_NE(fonts.com_velloquin_zorvantine_fontDataSourcesList(), font);
}

TEST(FontPreferencesTest, UnusableStoredFontGivesTheDefault) {
  support::RecordingPreferencesStore store;
  const FontPreferences fonts(store);
  const appkit::Font system = fonts.com_velloquin_zorvantine_fontPacketTable();
  EXPECT_FALSE(system.isFixedPitch());
  EXPECT_TRUE(fonts.com_velloquin_zorvantine_fontConsoleRaw().isFixedPitch());

  const auto stored = [](PreferenceValue family, PreferenceValue size) {
    return PreferenceDictionary{
        {"family", std::move(family)}, {"style", 7}, {"pointSize", std::move(size)}};
  };
  for (const PreferenceValue& damaged : {
           PreferenceValue("Some Serif 12"),
           PreferenceValue(PreferenceDictionary{}),
           PreferenceValue(stored("", 12.0)),
           PreferenceValue(stored(12, 12.0)),
           PreferenceValue(stored("Serif", 0)),
           PreferenceValue(stored("Serif", -3.5)),
           PreferenceValue(stored("Serif", 1e300)),
           PreferenceValue(stored("Serif", std::numeric_limits<double>::quiet_NaN())),
           PreferenceValue(stored("Serif", "12")),
       }) {
    store.underneath().setObject(damaged, QEVSettings::kFontPacketTable.name);
    EXPECT_EQ(fonts.com_velloquin_zorvantine_fontPacketTable(), system);
  }
  store.underneath().setObject(stored("Serif", 11), QEVSettings::kFontPacketTable.name);
  EXPECT_EQ(fonts.com_velloquin_zorvantine_fontPacketTable(),
            (appkit::Font{.family = "Serif", .style = "", .pointSize = 11}))
      << "what is right is kept";
}

TEST(FontPreferencesTest, StoresOnlyFontsThatItCanRead) {
  support::RecordingPreferencesStore store;
  const FontPreferences fonts(store);
  const auto font = [](std::string family, double size) {
    return appkit::Font{.family = std::move(family), .style = "", .pointSize = size};
  };
  for (const appkit::Font& good : {font("Serif", 1000), font("Serif", 5e-324)}) {
    fonts.setCom_velloquin_zorvantine_fontConsoleRaw(good);
    EXPECT_EQ(fonts.com_velloquin_zorvantine_fontConsoleRaw(), good);
  }
  store.forget();
  const double infinity = std::numeric_limits<double>::infinity();
  for (const appkit::Font& bad :
       {font("", 12), font("Serif", 0), font("Serif", -1), font("Serif", 1000.1),
        font("Serif", infinity), font("Serif", std::numeric_limits<double>::quiet_NaN())}) {
    fonts.setCom_velloquin_zorvantine_fontConsoleRaw(bad);
    EXPECT_TRUE(store.changes().empty()) << bad.family << ' ' << bad.pointSize;
  }
}

TEST(PlainTextTest, TrimsEveryKindOfWhiteSpace) {
  EXPECT_EQ(trimmed("\n\t a b\u00A0\u3000\r\n"), "a b");
  for (const char* space : {" ", "\t", "\v", "\f", "\u0085", "\u1680", "\u2000", "\u200A", "\u2028",
                            "\u2029", "\u202F", "\u205F", "\u3000"}) {
    EXPECT_EQ(trimmed(std::string(space) + "a" + space + space), "a");
    EXPECT_EQ(trimmed(space), "");
  }
  EXPECT_EQ(trimmed("\u2060a\u202E"), "\u2060a\u202E");
}

TEST(PlainTextTest, FillsPlaceholdersInOrderOrByNumber) {
  EXPECT_EQ(formatted("%@ · %@ · %@", {"", "a", "%@"}), " · a · %@");
  EXPECT_EQ(formatted("%2$@: %1$@%%", {"50", "half"}), "half: 50%");
  EXPECT_EQ(formatted("%@ %@ %3$@ 5% %", {"a"}), "a   5% %");
}

}  // namespace
}  // namespace QEVCommonTools
