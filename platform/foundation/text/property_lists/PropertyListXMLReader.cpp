// SPDX-License-Identifier: MIT
#include "foundation/Ascii.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/XMLParser.hpp"
#include "text/property_lists/PropertyListFault.hpp"
#include "text/property_lists/PropertyListForms.hpp"
#include "text/property_lists/PropertyListText.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

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

// The value of the text between the tags. Nothing when the text does not fit the element.
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

// Builds the list while the text is parsed. Open containers are kept in a vector, so a deep list
// needs no deep call stack.
class Reader final : public XMLHandler {
public:
  Result<PreferenceDictionary> read(std::string_view text) {
    const XMLParser::End end = parser_.parse(text, *this);
    if (end == XMLParser::End::outOfMemory)
      return Error{"there is too little memory for the property list; choose a smaller one"};
    if (problem_) return *std::move(problem_);
    if (end == XMLParser::End::malformed) {
      if (!hasElements_) return Error{"this is no property list; choose another file"};
      return fault(parser_.problem());
    }
    const PreferenceDictionary* const entries = root_ ? root_->asDictionary() : nullptr;
    if (entries == nullptr) return noDictionaryFault();
    return *entries;
  }

  void startElement(std::string_view name, std::span<const XMLAttribute> /*attributes*/) override {
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

  void characters(std::string_view text) override {
    if (leaf_ && leaf_ != Element::yes && leaf_ != Element::no) {
      text_.append(text);
    } else if (!withoutBlanks(text).empty()) {
      stop("text stands between the values");
    }
  }

  void endElement(std::string_view name) override {
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

  void documentType(bool hasDeclarations) override {
    if (hasDeclarations) stop("declarations of its own are not accepted");
  }

  void undefinedEntity() override { stop("an entity is not defined"); }

private:
  // An array or a dictionary whose end has not been read yet.
  struct Container {
    bool isDictionary = false;
    std::optional<std::string> key = std::nullopt;  // of the value that comes next
    PreferenceValue::Array elements = {};
    PreferenceDictionary entries = {};
  };

  Error fault(std::string_view problem) const {
    std::vector<std::string_view> keys;
    keys.reserve(open_.size());
    for (const Container& container : open_)
      keys.emplace_back(container.key ? *container.key : std::string_view());
    return propertyListFault("line " + std::to_string(parser_.line()), keys, problem);
  }

  void stop(std::string_view problem) {
    if (problem_) return;
    problem_ = fault(problem);
    parser_.stop();
  }

  void startValue(Element element) {
    if (open_.empty() && root_) return stop("there is more than one list");
    if (!open_.empty() && open_.back().isDictionary && !open_.back().key)
      return stop("a value has no key");
    // The top level does not count as a level.
    if (open_.size() > kMaximumPropertyListDepth + 1) return stop(depthProblem());
    if (!open_.empty() && ++count_ > kMaximumPropertyListValues) return stop(countProblem());
    if (element == Element::dictionary || element == Element::array) {
      open_.push_back({.isDictionary = element == Element::dictionary});
    } else {
      leaf_ = element;
      text_.clear();
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

  XMLParser parser_;
  bool hasElements_ = false;
  bool isInList_ = false;
  std::vector<Container> open_;
  // The element whose text is being read: a key, or a value that holds no others.
  std::optional<Element> leaf_;
  std::string text_;
  std::size_t count_ = 0;
  std::optional<PreferenceValue> root_;
  std::optional<Error> problem_;
};

}  // namespace

Result<PreferenceDictionary> parseXMLPropertyList(std::string_view text) {
  return Reader().read(text);
}

}  // namespace foundation
