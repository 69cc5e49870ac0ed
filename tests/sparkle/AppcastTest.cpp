// SPDX-License-Identifier: MIT
#include "sparkle/Appcast.hpp"

#include "sparkle/Version.hpp"

#include <gtest/gtest.h>

#include <compare>
#include <string>
#include <vector>

namespace sparkle {
namespace {

std::string feed(const std::string& items) {
  return R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="urn:appcast"><channel><title>Versions</title>)" +
         items + "</channel></rss>";
}

TEST(Version, ComparesByComponents) {
  const std::vector<std::pair<std::string, std::string>> olderAndNewer = {
      {"1.9", "1.10"},      {"2.0b1", "2.0b2"},
      {"2.0b2", "2.0"},     {"2.0rc1", "2.0.1"},
      {"1.beta", "1.0"},    {"", "0.1"},
      {"1.2.3", "1.2.3.1"}, {"1.99999999999999999999", "1.100000000000000000000"},
      {"3.0-beta3", "3.0"}, {"1.0a", "1.0b"},
  };
  for (const auto& [older, newer] : olderAndNewer) {
    EXPECT_TRUE(std::is_lt(compareVersions(older, newer))) << older << " < " << newer;
    EXPECT_TRUE(std::is_gt(compareVersions(newer, older))) << newer << " > " << older;
  }
  const std::vector<std::pair<std::string, std::string>> equals = {
      {"2", "2.0"}, {"1.0", "1.00"}, {"v1.2", "v1.2"}, {"1_2", "1.2"}, {"", "0"}};
  for (const auto& [a, b] : equals)
    EXPECT_TRUE(std::is_eq(compareVersions(a, b))) << a << " = " << b;
}

TEST(Appcast, ReadsVersionsFromElementsAndFromTheEnclosure) {
  const auto items = parseAppcast(feed(R"(
    <item>
      <title>Version 4</title>
      <pubDate>Mon, 05 Jan 2026 10:00:00 +0000</pubDate>
      <sparkle:version> 400 </sparkle:version>
      <sparkle:shortVersionString>4.0</sparkle:shortVersionString>
      <sparkle:minimumSystemVersion>12</sparkle:minimumSystemVersion>
      <description><![CDATA[<p>Reads <b>QUIC</b>.</p>]]></description>
      <description>Noch einmal</description>
      <enclosure url="https://example.com/4.deb?a=1&amp;b=2" length="1234" type="application/x-deb" sparkle:edSignature="c2ln"/>
    </item>
    <item>
      <sparkle:releaseNotesLink>https://example.com/3.txt</sparkle:releaseNotesLink>
      <enclosure url="https://example.com/3.deb" length="many" sparkle:version="300" sparkle:shortVersionString="3.0"/>
    </item>
    <item><title>Something else</title></item>
    <item><sparkle:version>200</sparkle:version></item>)"));
  ASSERT_TRUE(items) << items.error().message;
  ASSERT_EQ(items->size(), 3U);

  const AppcastItem& first = (*items)[0];
  EXPECT_EQ(first.title, "Version 4");
  EXPECT_EQ(first.version, "400");
  EXPECT_EQ(first.displayVersion, "4.0");
  EXPECT_EQ(first.notes, "<p>Reads <b>QUIC</b>.</p>");
  EXPECT_EQ(first.publicationDate, "Mon, 05 Jan 2026 10:00:00 +0000");
  EXPECT_EQ(first.minimumSystemVersion, "12");
  EXPECT_EQ(first.enclosure.url, "https://example.com/4.deb?a=1&b=2");
  EXPECT_EQ(first.enclosure.length, 1234U);
  EXPECT_EQ(first.enclosure.type, "application/x-deb");
  EXPECT_EQ(first.enclosure.signature, "c2ln");

  EXPECT_EQ((*items)[1].version, "300");
  EXPECT_EQ((*items)[1].displayVersion, "3.0");
  EXPECT_EQ((*items)[1].notesLink, "https://example.com/3.txt");
  EXPECT_EQ((*items)[1].enclosure.length, 0U);
  EXPECT_EQ((*items)[2].displayVersion, "200");
}

TEST(Appcast, InvalidFeedIsRefusedWithReason) {
  const std::string expansion =
      R"(<!DOCTYPE rss [<!ENTITY a "aaaa"><!ENTITY b "&a;&a;">]><rss><channel><item>&b;</item></channel></rss>)";
  const std::string outside =
      R"(<!DOCTYPE rss SYSTEM "file:///etc/passwd"><rss><channel></channel></rss>)";
  const std::string tooLong = feed(std::string(kLongestFeed, ' '));
  std::string tooDeep = "<rss><channel>";
  for (int i = 0; i < 100; ++i) tooDeep += "<a>";
  const std::vector<std::pair<std::string, std::string>> feedsAndReasons = {
      {"", "the update feed is damaged in line 1: no element found"},
      {"not XML", "damaged in line 1"},
      {"<rss>\n<channel>\n<item></channel></rss>", "damaged in line 3: mismatched tag"},
      {feed("<item>&undefined;</item>"), "undefined entity"},
      {"<html><body/></html>", "is no RSS feed"},
      {"<rss/>", "is no RSS feed"},
      {expansion, "declares a document type"},
      {outside, "declares a document type"},
      {tooLong, "longer than 4 MiB"},
      {tooDeep, "nests its elements too deeply"},
  };
  for (const auto& [text, reason] : feedsAndReasons) {
    const auto items = parseAppcast(text);
    ASSERT_FALSE(items) << text.substr(0, 80);
    EXPECT_NE(items.error().message.find(reason), std::string::npos) << items.error().message;
  }
  EXPECT_TRUE(parseAppcast(feed("")));
}

TEST(Appcast, MarkupOfNotesBecomesPlainText) {
  const std::vector<std::pair<std::string, std::string>> notesAndTexts = {
      {"Two lines,\n  as written & typed: 1 < 2", "Two lines,\n  as written & typed: 1 < 2"},
      {"<h2>New</h2>\n<ul>\n<li>QUIC &amp; HTTP/3</li>\n<li "
       "class=\"x\">Faster</li>\n</ul><p>Thanks<br/>all</p>",
       "New\n\n• QUIC & HTTP/3\n• Faster\n\nThanks\nall"},
      {"<p>a &lt;b&gt; &unknown; </p><!-- <p>no</p> --> c < d", "a <b> &unknown;\n\nc < d"},
      {"<p>open <a href=", "open <a href="},
      {"<script>", ""},
  };
  for (const auto& [notes, text] : notesAndTexts) EXPECT_EQ(plainText(notes), text);
}

}  // namespace
}  // namespace sparkle
