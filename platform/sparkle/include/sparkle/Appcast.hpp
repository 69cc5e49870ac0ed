// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sparkle {

// Bytes. A longer feed is refused.
inline constexpr std::size_t kLongestFeed = std::size_t{4} << 20;

// The download of an item. Fields that the feed leaves out are empty. See AppcastItem.
struct Enclosure {
  std::string url;
  std::string type;
  // Ed25519, in base64.
  std::string signature;
  // Bytes; 0 when the feed does not give it.
  std::uint64_t length = 0;
};

// One version in a feed. Fields that the feed leaves out are empty.
//
//     const auto items = parseAppcast(feed);
//     if (!items) return report(items.error().message);
//     for (const AppcastItem& item : *items) show(item.displayVersion, item.enclosure.url);
struct AppcastItem {
  std::string title;
  // The version that `compareVersions` compares.
  std::string version;
  // The version that is shown; `version` where the feed gives no other.
  std::string displayVersion;
  // May contain markup, which `plainText` removes.
  std::string notes;
  std::string notesLink;
  std::string publicationDate;
  std::string minimumSystemVersion;
  Enclosure enclosure;
};

// The items of an appcast, an RSS feed whose items carry `sparkle:version`, in the order of the
// feed. An item without a version is left out.
//
// Fails when the text is longer than `kLongestFeed`, is no well-formed XML or is no RSS feed. A
// text with a document type is refused as well, so no entity is expanded and nothing is fetched
// from elsewhere. Any bytes may be passed.
foundation::Result<std::vector<AppcastItem>> parseAppcast(std::string_view feed);

// Notes without their markup. Paragraphs and line breaks become lines, a list item begins with a
// bullet and a blank, and common entities become characters.
std::string plainText(std::string_view notes);

}  // namespace sparkle
