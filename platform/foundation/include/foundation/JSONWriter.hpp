#pragma once

#include "foundation/JSON.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace foundation {

// Makes a JSON text without blanks, value by value. Commas and colons come by themselves; that arrays and
// objects are closed, and that in an object each value follows a name, is the caller's business.
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
  // In the shortest form that reads back as the same number; what is not finite is written as null.
  JSONWriter& real(double value);
  // Bytes that are no UTF-8 are written as U+FFFD.
  JSONWriter& string(std::string_view value);
  // A parsed value with all that is in it; its numbers and strings keep their spelling.
  JSONWriter& value(const JSON& value);
  // A parsed object, with a string as the value of its member of that name.
  JSONWriter& object(const JSON& object, std::string_view member, std::string_view string);

  // Makes room for a text of so many bytes.
  void reserve(std::size_t bytes) { text_.reserve(bytes); }

  const std::string& text() const { return text_; }
  // The text; the writer begins anew.
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
