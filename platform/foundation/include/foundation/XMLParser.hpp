// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace foundation {

// An attribute of an element. The texts last until the handler that gets them returns.
// See XMLHandler.
struct XMLAttribute {
  std::string_view name;
  std::string_view value;
};

class XMLParser;

// Receives the parts of an XML text in order. The text views are valid during the call only. A
// handler that refuses the text calls XMLParser::stop, and may still be called for a part or two.
//
//     void Links::startElement(std::string_view name, std::span<const XMLAttribute> attributes) {
//       for (const XMLAttribute& each : attributes)
//         if (name == "enclosure" && each.name == "url") links_.emplace_back(each.value);
//     }
class XMLHandler {
public:
  virtual ~XMLHandler() = default;

  virtual void startElement(std::string_view name, std::span<const XMLAttribute> attributes) = 0;
  virtual void endElement(std::string_view name) = 0;
  // A part of the text of an element; the parser may split a text anywhere.
  virtual void characters(std::string_view text) = 0;
  // A document type, and whether it has declarations of its own between brackets.
  virtual void documentType(bool hasDeclarations) = 0;
  // A reference to an entity that is not one of XML's own five.
  virtual void undefinedEntity() {}
};

// Parses an XML text once. Reads nothing but the text: external entities are not followed.
//
//     XMLParser parser;
//     Handler handler(parser);
//     if (parser.parse(text, handler) == XMLParser::End::malformed) report(parser.problem());
class XMLParser {
public:
  enum class End {
    complete,
    stopped,      // `stop` was called
    malformed,    // `problem` and `line` say what is wrong where
    outOfMemory,  // of the parser or of the handler, which is the one exception it may throw
  };

  XMLParser();
  XMLParser(const XMLParser&) = delete;
  XMLParser& operator=(const XMLParser&) = delete;
  ~XMLParser();

  // The text is shorter than 2 GiB.
  End parse(std::string_view text, XMLHandler& handler);

  // Ends the parsing at the part that the handler is called with.
  void stop();

  // The line that is being read, or in which the parsing ended, from 1.
  std::size_t line() const;
  // What is wrong with a malformed text.
  std::string problem() const;

private:
  struct Expat;
  std::unique_ptr<Expat> expat_;
};

}  // namespace foundation
