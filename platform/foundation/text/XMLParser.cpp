// SPDX-License-Identifier: MIT
#include "foundation/XMLParser.hpp"

#include <expat.h>

#include <new>
#include <type_traits>
#include <vector>

namespace foundation {

namespace {

struct ParserDeleter {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

}  // namespace

struct XMLParser::Expat {
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter> parser{
      XML_ParserCreate(nullptr)};
  XMLHandler* handler = nullptr;
  bool isStopped = false;
  bool isOutOfMemory = false;

  void stop() {
    isStopped = true;
    XML_StopParser(parser.get(), XML_FALSE);
  }

  // Expat is written in C, so no exception may pass through it.
  template <class Work>
  static void guarded(void* self, Work work) {
    auto& expat = *static_cast<Expat*>(self);
    try {
      work(*expat.handler);
    } catch (const std::bad_alloc&) {
      expat.isOutOfMemory = true;
      expat.stop();
    }
  }

  static void onStart(void* self, const XML_Char* name, const XML_Char** attributes) {
    guarded(self, [&](XMLHandler& handler) {
      std::vector<XMLAttribute> named;
      for (; attributes[0] != nullptr; attributes += 2)
        named.push_back({.name = attributes[0], .value = attributes[1]});
      handler.startElement(name, named);
    });
  }
  static void onEnd(void* self, const XML_Char* name) {
    guarded(self, [&](XMLHandler& handler) { handler.endElement(name); });
  }
  static void onText(void* self, const XML_Char* text, int length) {
    guarded(self, [&](XMLHandler& handler) {
      handler.characters({text, static_cast<std::size_t>(length)});
    });
  }
  static void onDocumentType(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                             int hasDeclarations) {
    guarded(self, [&](XMLHandler& handler) { handler.documentType(hasDeclarations != 0); });
  }
  static void onSkippedEntity(void* self, const XML_Char*, int) {
    guarded(self, [&](XMLHandler& handler) { handler.undefinedEntity(); });
  }
};

XMLParser::XMLParser() : expat_(std::make_unique<Expat>()) {}

XMLParser::~XMLParser() = default;

XMLParser::End XMLParser::parse(std::string_view text, XMLHandler& handler) {
  XML_Parser parser = expat_->parser.get();
  if (parser == nullptr) return End::outOfMemory;
  expat_->handler = &handler;
  XML_SetUserData(parser, expat_.get());
  XML_SetElementHandler(parser, &Expat::onStart, &Expat::onEnd);
  XML_SetCharacterDataHandler(parser, &Expat::onText);
  XML_SetStartDoctypeDeclHandler(parser, &Expat::onDocumentType);
  XML_SetSkippedEntityHandler(parser, &Expat::onSkippedEntity);
  XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
  const auto status = XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE);
  if (expat_->isOutOfMemory) return End::outOfMemory;
  if (expat_->isStopped) return End::stopped;
  return status == XML_STATUS_OK ? End::complete : End::malformed;
}

void XMLParser::stop() { expat_->stop(); }

std::size_t XMLParser::line() const {
  XML_Parser parser = expat_->parser.get();
  return parser != nullptr ? XML_GetCurrentLineNumber(parser) : 0;
}

std::string XMLParser::problem() const {
  XML_Parser parser = expat_->parser.get();
  return parser != nullptr ? XML_ErrorString(XML_GetErrorCode(parser)) : "";
}

}  // namespace foundation
