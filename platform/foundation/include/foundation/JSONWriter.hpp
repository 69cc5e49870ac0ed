// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/JSON.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace foundation {

// Writes a JSON text without blanks, value by value. Commas and colons are written as needed. The
// caller has to close arrays and objects, and to write a name before each value of an object.
//
//     JSONWriter writer;
//     writer.beginObject().name("port").integer(53).name("isOpen").boolean(true).endObject();
//     writer.takeText();  // {"port":53,"isOpen":true}
class JSONWriter {
public:
  JSONWriter& beginArray() { return begin('['); }
  JSONWriter& endArray() { return end(']'); }
  JSONWriter& beginObject() { return begin('{'); }
  JSONWriter& endObject() { return end('}'); }
  JSONWriter& name(std::string_view name);

  JSONWriter& null() { return word("null"); }
  JSONWriter& boolean(bool value) { return word(value ? "true" : "false"); }
  JSONWriter& integer(std::int64_t value);
  // In the shortest form that reads back as the same number. Infinities and NaN are written as
  // null.
  JSONWriter& real(double value);
  // Bytes that are not UTF-8 are written as U+FFFD.
  JSONWriter& string(std::string_view value);
  // A parsed value with its contents. Numbers and strings keep their spelling.
  JSONWriter& value(const JSON& value);
  // A parsed object, in which the string replaces the value of the member of that name.
  JSONWriter& object(const JSON& object, std::string_view member, std::string_view string);

  // Reserves memory for a text of so many bytes.
  void reserve(std::size_t bytes) { text_.reserve(bytes); }

  const std::string& text() const { return text_; }
  // Returns the text and starts a new one.
  std::string takeText();

private:
  JSONWriter& begin(char bracket);
  JSONWriter& end(char bracket);
  JSONWriter& word(std::string_view word);
  void separate();
  void quote(std::string_view text);

  std::string text_;
  bool followsValue_ = false;
};

}  // namespace foundation
