// SPDX-License-Identifier: MIT
#include "foundation/Base64.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/Unicode.hpp"
#include "text/property_lists/PropertyListForms.hpp"
#include "text/property_lists/PropertyListText.hpp"

#include <optional>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

// Characters that XML cannot hold, not even as a character reference.
bool hasCharacterOutsideXML(std::string_view text) {
  for (const char c : text) {
    if (c >= 0 && c < ' ' && c != '\t' && c != '\n' && c != '\r') return true;
  }
  return text.find("\uFFFE") != std::string_view::npos ||
         text.find("\uFFFF") != std::string_view::npos;
}

class XMLWriter {
public:
  Result<std::string> list(const PreferenceDictionary& values) {
    text_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
    append(values, 0);
    if (error_) return *std::move(error_);
    return std::move(text_) + "</plist>\n";
  }

private:
  void fail(std::string message) {
    if (!error_) error_ = Error{std::move(message)};
  }

  void beginLine(int depth) { text_.append(static_cast<std::size_t>(depth), '\t'); }

  void appendElement(std::string_view name, std::string_view contents) {
    text_.append("<").append(name).append(">").append(contents).append("</").append(name).append(
        ">\n");
  }

  void appendText(std::string_view name, std::string_view text) {
    if (!isValidUtf8(text))
      return fail("a property list holds no text that is not UTF-8; remove it first");
    if (hasCharacterOutsideXML(text)) {
      return fail(
          "an XML property list holds no text with control characters; choose the binary format");
    }
    std::string escaped;
    for (const char c : text) {
      switch (c) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '\r': escaped += "&#13;"; break;  // read as a line feed otherwise
        default: escaped += c;
      }
    }
    appendElement(name, escaped);
  }

  void append(const PreferenceDictionary& entries, int depth) {
    if (entries.empty()) {
      text_ += "<dict/>\n";
      return;
    }
    text_ += "<dict>\n";
    for (const auto& [key, value] : entries) {
      beginLine(depth + 1);
      appendText("key", key);
      beginLine(depth + 1);
      append(value, depth + 1);
    }
    beginLine(depth);
    text_ += "</dict>\n";
  }

  void append(const PreferenceValue::Array& elements, int depth) {
    if (elements.empty()) {
      text_ += "<array/>\n";
      return;
    }
    text_ += "<array>\n";
    for (const PreferenceValue& element : elements) {
      beginLine(depth + 1);
      append(element, depth + 1);
    }
    beginLine(depth);
    text_ += "</array>\n";
  }

  void append(const PreferenceValue& value, int depth) {
    switch (value.type()) {
      case PreferenceValue::Type::integer:
        return appendElement("integer", std::to_string(*value.asInteger()));
      case PreferenceValue::Type::boolean:
        text_ += *value.asBoolean() ? "<true/>\n" : "<false/>\n";
        return;
      case PreferenceValue::Type::real: return appendElement("real", textOfReal(*value.asReal()));
      case PreferenceValue::Type::string: return appendText("string", *value.asString());
      case PreferenceValue::Type::data:
        return appendElement("data", base64Encoded(*value.asData()));
      case PreferenceValue::Type::date: {
        const auto text = textOfDate(*value.asDate());
        if (!text)
          return fail(
              "an XML property list holds no date outside the years 0 to 9999; remove it first");
        return appendElement("date", *text);
      }
      case PreferenceValue::Type::array: return append(*value.asArray(), depth);
      case PreferenceValue::Type::dictionary: return append(*value.asDictionary(), depth);
    }
  }

  std::string text_;
  std::optional<Error> error_;
};

}  // namespace

Result<std::string> xmlPropertyList(const PreferenceDictionary& values) {
  return XMLWriter().list(values);
}

}  // namespace foundation
