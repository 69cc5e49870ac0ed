#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sparkle {

// A longer feed is not read.
inline constexpr std::size_t kLongestFeed = std::size_t{4} << 20;

// What an item of the feed says can be downloaded. What the feed leaves out is empty.
struct Enclosure {
  std::string url;
  std::string type;
  // Ed25519, in base64.
  std::string signature;
  // Bytes; 0 when the feed does not say.
  std::uint64_t length = 0;
};

// One version that a feed offers. What the feed leaves out is empty.
struct AppcastItem {
  std::string title;
  // What versions are compared by.
  std::string version;
  // What people call the version; the version itself where the feed has no other name for it.
  std::string displayVersion;
  // As the feed has it, with whatever markup its author used: `plainText` makes it readable.
  std::string notes;
  std::string notesLink;
  std::string publicationDate;
  std::string minimumSystemVersion;
  Enclosure enclosure;
};

// The items of an appcast, an RSS feed whose items carry `sparkle:version`, in the order of the
// feed. An item without a version is left out.
//
// Fails when the text is longer than `kLongestFeed`, is no well-formed XML, declares a document
// type (so that no entity is ever expanded and nothing is fetched from elsewhere), or is no RSS
// feed. Any bytes may be passed; nothing outside them is read.
foundation::Result<std::vector<AppcastItem>> parseAppcast(std::string_view feed);

// Notes without their markup, fit to be shown as they are: lines for paragraphs and line breaks, "•
// " for list items, characters for the common entities.
std::string plainText(std::string_view notes);

}  // namespace sparkle
