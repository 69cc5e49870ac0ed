// SPDX-License-Identifier: MIT
#include "headless/Metrics.hpp"

#include "support/ElementPrinting.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace headless {
namespace {

using viewkit::Font;
using viewkit::Size;
using viewkit::TextVisual;

const Metrics kMetrics;

Size sizeOf(const TextVisual& text, std::optional<double> maxWidth = std::nullopt) {
  return kMetrics.measureText(text, maxWidth).size;
}

int linesOf(const std::string& text, std::optional<double> maxWidth, int lineLimit = 0) {
  const double line = sizeOf({.text = "x"}).height;
  return static_cast<int>(
      std::lround(sizeOf({.text = text, .lineLimit = lineLimit}, maxWidth).height / line));
}

TEST(HeadlessText, BreaksAtWordsAndWhereTheTextSaysSo) {
  const double word = sizeOf({.text = "packet"}).width;
  struct Case {
    std::string text;
    std::optional<double> maxWidth;
    int lineLimit;
    int lines;
  };
  for (const Case& each : {
           Case{"packet packet packet", std::nullopt, 0, 1},
           Case{"packet packet packet", word, 0, 3},
           Case{"packet packet packet", 2.5 * word, 0, 2},
           Case{"packet\npacket", std::nullopt, 0, 2},
           Case{"packet\n\npacket", 10 * word, 0, 3},
           Case{"packetpacket", word, 0, 2},
           Case{"a packetpacket", word, 0, 3},
           Case{"packet packet packet", word, 2, 2},
           Case{"packet packet packet", word, 1, 1},
           Case{"", word, 0, 1},
           Case{"packet", 0, 0, 6},
       }) {
    EXPECT_EQ(linesOf(each.text, each.maxWidth, each.lineLimit), each.lines)
        << '"' << each.text << "\" in " << each.maxWidth.value_or(-1) << ", limit "
        << each.lineLimit;
  }
}

TEST(HeadlessText, FitsTheWidthThatItAsksForAndNeverTakesMoreThanItIsOffered) {
  for (const std::string text :
       {"Check for updates", "TCP/UDP 443", "  blanks  ", "Überprüfung", "日本語のテキスト"}) {
    const Size ideal = sizeOf({.text = text});
    EXPECT_EQ(sizeOf({.text = text}, ideal.width), ideal) << text;
    for (const double width : {0.0, 10.0, 33.3, 70.0}) {
      EXPECT_LE(sizeOf({.text = text}, width).width, width) << text;
      EXPECT_LE(sizeOf({.text = text, .lineLimit = 1}, width).width, width) << text;
    }
  }
}

TEST(HeadlessText, WidthFollowsCharactersFontAndSize) {
  const auto width = [](const std::string& text, const Font& font = Font::body()) {
    return sizeOf({.text = text, .font = font}).width;
  };
  EXPECT_LT(width("iiii"), width("nnnn"));
  EXPECT_LT(width("nnnn"), width("WWWW"));
  EXPECT_EQ(width("éééé"), width("eeee"));
  EXPECT_GT(width("漢字漢字"), width("nnnn"));
  EXPECT_GT(width("Analyzer", Font::body().semibold()), width("Analyzer"));
  EXPECT_GT(width("Analyzer", Font::system(26)), 1.9 * width("Analyzer", Font::system(13)));
  const Font fixed = Font::of({.family = "Some Mono", .style = "", .pointSize = 13});
  EXPECT_EQ(width("iiii", fixed), width("WWWW", fixed));
}

TEST(HeadlessText, BaselinesLieInTheFirstAndTheLastLine) {
  const auto text = kMetrics.measureText({.text = "one\ntwo\nthree"}, std::nullopt);
  const double line = text.size.height / 3;
  EXPECT_GT(text.firstBaseline, line / 2);
  EXPECT_LT(text.firstBaseline, line);
  EXPECT_EQ(text.lastBaseline, text.firstBaseline + 2 * line);
}

TEST(HeadlessPictures, AreAsLargeAsTheirFilesSay) {
  const support::TemporaryFolder folder;
  struct Case {
    std::string name;
    std::string contents;
    Size size;
  };
  using namespace std::string_literals;
  for (
      const Case& each : {
          Case{"a.png", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x01\x02\0\0\0\x20"s, {258, 32}},
          Case{"cut.png", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0"s, {}},
          Case{
              "a.svg",
              R"(<?xml version="1.0"?><svg xmlns="x" width="120px" height="80.5" viewBox="0 0 1 1">)",
              {120, 80.5}},
          Case{"box.svg",
               R"(<svg viewBox="0 0 64 48"><rect width="3" height="4"/></svg>)",
               {64, 48}},
          Case{"none.svg", "<svg>", {}},
          Case{"empty", "", {}},
      }) {
    const std::filesystem::path path = folder.path() / each.name;
    std::ofstream(path, std::ios::binary) << each.contents;
    EXPECT_EQ(kMetrics.imageSize(path), each.size) << each.name;
  }
  EXPECT_EQ(kMetrics.imageSize(folder.path() / "missing.png"), Size());
}

}  // namespace
}  // namespace headless
