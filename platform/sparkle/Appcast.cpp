#include "sparkle/Appcast.hpp"

#include "foundation/Ascii.hpp"
#include "sparkle/reason.hpp"

#include <expat.h>

#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

namespace sparkle {

namespace {

using foundation::Error;
using foundation::withoutBlanks;

// The deepest nesting of elements that is accepted. Real feeds stay far below it.
constexpr int kDeepestElement = 64;

struct ParserDeleter {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

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
class Reader {
public:
  explicit Reader(XML_Parser parser) : parser_(parser) {
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, &Reader::onStart, &Reader::onEnd);
    XML_SetCharacterDataHandler(parser, &Reader::onText);
    XML_SetStartDoctypeDeclHandler(parser, &Reader::onDoctype);
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
  }

  const std::optional<Error>& problem() const { return problem_; }
  bool hasChannel() const { return hasChannel_; }
  std::vector<AppcastItem> takeItems() { return std::move(items_); }

private:
  static void onStart(void* self, const XML_Char* name, const XML_Char** attributes) {
    static_cast<Reader*>(self)->start(name, attributes);
  }
  static void onEnd(void* self, const XML_Char* /*name*/) { static_cast<Reader*>(self)->end(); }
  static void onText(void* self, const XML_Char* text, int length) {
    static_cast<Reader*>(self)->text({text, static_cast<std::size_t>(length)});
  }
  static void onDoctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    static_cast<Reader*>(self)->stop(
        "the update feed declares a document type, which is not accepted");
  }

  void stop(const char* message) {
    problem_ = reason(message);
    XML_StopParser(parser_, XML_FALSE);
  }

  void start(std::string_view name, const XML_Char** attributes) {
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

  void takeEnclosure(const XML_Char** attributes) {
    for (; attributes[0] != nullptr; attributes += 2) {
      const std::string_view name = attributes[0];
      const std::string_view value = attributes[1];
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

  void text(std::string_view characters) {
    if (field_ != nullptr) field_->append(characters);
  }

  void end() {
    if (depth_ == 4) field_ = nullptr;
    if (depth_ == 3 && item_) {
      finishItem();
      item_.reset();
    }
    --depth_;
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

  XML_Parser parser_;
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
  const Parser parser(XML_ParserCreate(nullptr));
  if (parser == nullptr) return reason("there is not enough memory to read the update feed");

  Reader reader(parser.get());
  const auto status = XML_Parse(parser.get(), feed.data(), static_cast<int>(feed.size()), XML_TRUE);
  if (reader.problem()) return *reader.problem();
  if (status != XML_STATUS_OK) {
    return reason("the update feed is damaged in line %1: %2",
                  {std::to_string(XML_GetCurrentLineNumber(parser.get())),
                   XML_ErrorString(XML_GetErrorCode(parser.get()))});
  }
  if (!reader.hasChannel()) return reason("the update feed is no RSS feed");
  return reader.takeItems();
}

}  // namespace sparkle
