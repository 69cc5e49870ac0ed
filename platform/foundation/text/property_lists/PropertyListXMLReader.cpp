#include "foundation/PropertyList.hpp"
#include "text/property_lists/PropertyListFault.hpp"
#include "text/property_lists/PropertyListForms.hpp"
#include "text/property_lists/PropertyListText.hpp"

#include <expat.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

struct ParserDeleter {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

enum class Element { list, dictionary, array, key, string, integer, real, date, data, yes, no };

std::optional<Element> elementOfName(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, Element>, 11> elements{
      {{"plist", Element::list},
       {"dict", Element::dictionary},
       {"array", Element::array},
       {"key", Element::key},
       {"string", Element::string},
       {"integer", Element::integer},
       {"real", Element::real},
       {"date", Element::date},
       {"data", Element::data},
       {"true", Element::yes},
       {"false", Element::no}}};
  const auto* const found = std::find_if(
      elements.begin(), elements.end(), [&](const auto& element) { return element.first == name; });
  return found != elements.end() ? std::optional(found->second) : std::nullopt;
}

// The value between the tags; nothing when the text is none of that type.
std::optional<PreferenceValue> valueOfText(Element element, std::string& text) {
  const auto made = [](auto value) {
    return value ? std::optional<PreferenceValue>(*std::move(value)) : std::nullopt;
  };
  switch (element) {
    case Element::string: return PreferenceValue(std::exchange(text, {}));
    case Element::integer: return made(integerOfText(text));
    case Element::real: return made(realOfText(text));
    case Element::date: return made(dateOfText(text));
    case Element::data: return made(dataOfText(text));
    case Element::yes: return PreferenceValue(true);
    case Element::no: return PreferenceValue(false);
    default: return std::nullopt;
  }
}

std::string_view problemOfText(Element element) {
  switch (element) {
    case Element::integer: return "this is no integer, or it does not fit 64 bits with a sign";
    case Element::real: return "this is no real number, or it is out of range";
    case Element::date: return "this is no date such as 2019-05-17T08:30:12Z";
    default: return "this is no data in base64";
  }
}

// Takes the list in as the parser reads it. What is open stands on a stack of its own, so depth
// costs no stack of the process.
class Reader {
public:
  explicit Reader(XML_Parser parser) : parser_(parser) {
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, &Reader::onStart, &Reader::onEnd);
    XML_SetCharacterDataHandler(parser, &Reader::onText);
    XML_SetStartDoctypeDeclHandler(parser, &Reader::onDoctype);
    XML_SetSkippedEntityHandler(parser, &Reader::onSkippedEntity);
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
  }

  Result<PreferenceDictionary> read(std::string_view text) {
    const auto status = XML_Parse(parser_, text.data(), static_cast<int>(text.size()), XML_TRUE);
    if (problem_) return *std::move(problem_);
    if (status != XML_STATUS_OK) {
      if (!hasElements_) return Error{"this is no property list; choose another file"};
      return fault(XML_ErrorString(XML_GetErrorCode(parser_)));
    }
    const PreferenceDictionary* const entries = root_ ? root_->asDictionary() : nullptr;
    if (entries == nullptr) return noDictionaryFault();
    return *entries;
  }

private:
  // An array or a dictionary whose end has not been read yet.
  struct Container {
    bool isDictionary = false;
    std::optional<std::string> key = std::nullopt;  // of the value that comes next
    PreferenceValue::Array elements = {};
    PreferenceDictionary entries = {};
  };

  // Nothing is thrown through the parser, which is written in C.
  template <class Work>
  static void guarded(void* self, Work work) {
    auto& reader = *static_cast<Reader*>(self);
    try {
      work(reader);
    } catch (const std::bad_alloc&) {
      reader.problem_ =
          Error{"there is too little memory for the property list; choose a smaller one"};
      XML_StopParser(reader.parser_, XML_FALSE);
    }
  }
  static void onStart(void* self, const XML_Char* name, const XML_Char** /*attributes*/) {
    guarded(self, [&](Reader& reader) { reader.start(name); });
  }
  static void onEnd(void* self, const XML_Char* name) {
    guarded(self, [&](Reader& reader) { reader.end(name); });
  }
  static void onText(void* self, const XML_Char* text, int length) {
    guarded(self, [&](Reader& reader) { reader.text({text, static_cast<std::size_t>(length)}); });
  }
  static void onDoctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                        int hasDeclarations) {
    guarded(self, [&](Reader& reader) {
      if (hasDeclarations != 0) reader.stop("declarations of its own are not accepted");
    });
  }
  // One that is declared nowhere: without the list's own declarations, any but the five of XML.
  static void onSkippedEntity(void* self, const XML_Char*, int) {
    guarded(self, [&](Reader& reader) { reader.stop("an entity is not defined"); });
  }

  Error fault(std::string_view problem) const {
    std::vector<std::string_view> keys;
    for (const Container& container : open_)
      keys.emplace_back(container.key ? *container.key : std::string_view());
    return propertyListFault("line " + std::to_string(XML_GetCurrentLineNumber(parser_)), keys,
                             problem);
  }

  void stop(std::string_view problem) {
    if (problem_) return;
    problem_ = fault(problem);
    XML_StopParser(parser_, XML_FALSE);
  }

  void start(std::string_view name) {
    hasElements_ = true;
    const auto element = elementOfName(name);
    if (!element) return stop("no value has this name");
    if (leaf_) return stop("a value stands within text");
    if (element == Element::list) {
      if (isInList_ || root_ || !open_.empty()) stop("a list begins within the list");
      isInList_ = true;
    } else if (element == Element::key) {
      if (open_.empty() || !open_.back().isDictionary)
        return stop("a key stands outside a dictionary");
      if (open_.back().key) return stop("this key has no value");
      leaf_ = element;
    } else {
      startValue(*element);
    }
  }

  void startValue(Element element) {
    if (open_.empty() && root_) return stop("there is more than one list");
    if (!open_.empty() && open_.back().isDictionary && !open_.back().key)
      return stop("a value has no key");
    // The list itself is no level.
    if (open_.size() > kMaximumPropertyListDepth + 1) return stop(depthProblem());
    if (!open_.empty() && ++count_ > kMaximumPropertyListValues) return stop(countProblem());
    if (element == Element::dictionary || element == Element::array) {
      open_.push_back({.isDictionary = element == Element::dictionary});
    } else {
      leaf_ = element;
      text_.clear();
    }
  }

  void text(std::string_view characters) {
    if (leaf_ && leaf_ != Element::yes && leaf_ != Element::no) {
      text_.append(characters);
    } else if (characters.find_first_not_of(" \t\r\n") != std::string_view::npos) {
      stop("text stands between the values");
    }
  }

  void end(std::string_view name) {
    const auto element = elementOfName(name);
    if (problem_ || element == Element::list) return;
    if (element == Element::key) {
      open_.back().key = std::exchange(text_, {});
      leaf_.reset();
    } else if (leaf_) {
      auto value = valueOfText(*leaf_, text_);
      if (!value) return stop(problemOfText(*leaf_));
      leaf_.reset();
      add(*std::move(value));
    } else {
      if (open_.back().key) return stop("this key has no value");
      Container ended = std::move(open_.back());
      open_.pop_back();
      add(ended.isDictionary ? PreferenceValue(std::move(ended.entries))
                             : PreferenceValue(std::move(ended.elements)));
    }
  }

  void add(PreferenceValue value) {
    text_.clear();
    if (open_.empty()) {
      root_ = std::move(value);
    } else if (Container& container = open_.back(); container.isDictionary) {
      container.entries.insert_or_assign(*std::exchange(container.key, std::nullopt),
                                         std::move(value));
    } else {
      container.elements.push_back(std::move(value));
    }
  }

  XML_Parser parser_;
  bool hasElements_ = false;
  bool isInList_ = false;
  std::vector<Container> open_;
  std::optional<Element>
      leaf_;  // the value without others in it, or the key, whose text is being read
  std::string text_;
  std::size_t count_ = 0;
  std::optional<PreferenceValue> root_;
  std::optional<Error> problem_;
};

}  // namespace

Result<PreferenceDictionary> parseXMLPropertyList(std::string_view text) {
  const Parser parser(XML_ParserCreate(nullptr));
  if (parser == nullptr)
    return Error{"there is too little memory for the property list; choose a smaller one"};
  return Reader(parser.get()).read(text);
}

}  // namespace foundation
