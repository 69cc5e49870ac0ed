// SPDX-License-Identifier: MIT
#include "sparkle/Appcast.hpp"

#include "foundation/Ascii.hpp"
#include "foundation/XMLParser.hpp"
#include "sparkle/reason.hpp"

#include <array>
#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace sparkle {

namespace {

using foundation::Error;
using foundation::withoutBlanks;

// The deepest nesting of elements that is accepted. Real feeds stay far below it.
constexpr int kDeepestElement = 64;

// The field that takes the text of an element of an item.
std::string* fieldFor(std::string_view element, AppcastItem& item) {
  if (element == "title") return &item.title;
  if (element == "description") return &item.notes;
  if (element == "pubDate") return &item.publicationDate;
  if (element == "sparkle:version") return &item.version;
  if (element == "sparkle:shortVersionString") return &item.displayVersion;
  if (element == "sparkle:releaseNotesLink") return &item.notesLink;
  if (element == "sparkle:minimumSystemVersion") return &item.minimumSystemVersion;
  return nullptr;
}

// Collects the items while the parser reads: rss / channel / item / the fields of an item.
class Reader final : public foundation::XMLHandler {
public:
  foundation::Result<std::vector<AppcastItem>> read(std::string_view feed) {
    using End = foundation::XMLParser::End;
    const End end = parser_.parse(feed, *this);
    if (end == End::outOfMemory)
      return reason("there is not enough memory to read the update feed");
    if (problem_) return *problem_;
    if (end == End::malformed) {
      return reason("the update feed is damaged in line %1: %2",
                    {std::to_string(parser_.line()), parser_.problem()});
    }
    if (!hasChannel_) return reason("the update feed is no RSS feed");
    return std::move(items_);
  }

  void startElement(std::string_view name,
                    std::span<const foundation::XMLAttribute> attributes) override {
    ++depth_;
    if (depth_ > kDeepestElement) {
      stop("the update feed nests its elements too deeply");
    } else if (depth_ == 1 && name != "rss") {
      stop("the update feed is no RSS feed");
    } else if (depth_ == 2 && name == "channel") {
      hasChannel_ = true;
    } else if (depth_ == 3 && name == "item") {
      item_.emplace();
    } else if (depth_ == 4 && item_) {
      field_ = fieldFor(name, *item_);
      // Of several elements, such as notes in several languages, the first one counts.
      if (field_ != nullptr && !field_->empty()) field_ = nullptr;
      if (name == "enclosure" && item_->enclosure.url.empty()) takeEnclosure(attributes);
    }
  }

  void characters(std::string_view text) override {
    if (field_ != nullptr) field_->append(text);
  }

  void endElement(std::string_view /*name*/) override {
    if (depth_ == 4) field_ = nullptr;
    if (depth_ == 3 && item_) {
      finishItem();
      item_.reset();
    }
    --depth_;
  }

  void documentType(bool /*hasDeclarations*/) override {
    stop("the update feed declares a document type, which is not accepted");
  }

private:
  void stop(const char* message) {
    problem_ = reason(message);
    parser_.stop();
  }

  void takeEnclosure(std::span<const foundation::XMLAttribute> attributes) {
    for (const auto& [name, value] : attributes) {
      Enclosure& enclosure = item_->enclosure;
      if (name == "url") enclosure.url = value;
      if (name == "type") enclosure.type = value;
      if (name == "length")
        std::from_chars(value.data(), value.data() + value.size(), enclosure.length);
      if (name == "sparkle:edSignature") enclosure.signature = value;
      if (name == "sparkle:version") versionOfEnclosure_ = value;
      if (name == "sparkle:shortVersionString") displayVersionOfEnclosure_ = value;
    }
  }

  void finishItem() {
    AppcastItem& item = *item_;
    for (std::string* field :
         {&item.title, &item.version, &item.displayVersion, &item.notes, &item.notesLink,
          &item.publicationDate, &item.minimumSystemVersion}) {
      *field = std::string(withoutBlanks(*field));
    }
    const std::string version = std::exchange(versionOfEnclosure_, {});
    const std::string displayVersion = std::exchange(displayVersionOfEnclosure_, {});
    if (item.version.empty()) item.version = withoutBlanks(version);
    if (item.displayVersion.empty()) item.displayVersion = withoutBlanks(displayVersion);
    if (item.displayVersion.empty()) item.displayVersion = item.version;
    if (!item.version.empty()) items_.push_back(std::move(item));
  }

  foundation::XMLParser parser_;
  int depth_ = 0;
  bool hasChannel_ = false;
  std::optional<AppcastItem> item_;
  std::string* field_ = nullptr;
  std::string versionOfEnclosure_;
  std::string displayVersionOfEnclosure_;
  std::vector<AppcastItem> items_;
  std::optional<Error> problem_;
};

}  // namespace

foundation::Result<std::vector<AppcastItem>> parseAppcast(std::string_view feed) {
  if (feed.size() > kLongestFeed) return reason("the update feed is longer than 4 MiB");
  return Reader().read(feed);
}

}  // namespace sparkle
