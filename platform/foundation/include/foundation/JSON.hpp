// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

struct JSONDocument;

// The deepest nesting of arrays and objects that the parser accepts.
inline constexpr int kMaximumJSONDepth = 512;

// A value of a parsed JSON text (RFC 8259), to be read. JSONWriter makes texts.
//
//     const auto list = JSON::parse(R"([{"name": "DNS", "port": 53}])");
//     if (!list) return report(list.error());
//     for (const JSON& record : list->elements()) use(record.member("name"));
//
// Numbers keep their text, however large or precise they are, and objects the order of their
// members. Where a name occurs more than once in an object, the object has one member of that name:
// in the place of the first occurrence, with the value of the last.
//
// A value is a cheap handle that keeps the whole document alive. A document takes its text and
// eight bytes for each value. It is immutable, so any thread may read it.
class JSON {
public:
  enum class Type { null, boolean, number, string, array, object };
  struct Member;
  template <class Item>
  class Range;

  // Parses a text in strict UTF-8, after an optional byte-order mark, nested at most
  // kMaximumJSONDepth deep. The error names the byte at which the text is wrong.
  static Result<JSON> parse(std::string text);

  // The same without a copy: the text has to outlive every value of it.
  static Result<JSON> parseBorrowed(std::string_view text);

  Type type() const;
  bool isArray() const { return type() == Type::array; }
  bool isObject() const { return type() == Type::object; }
  bool isString() const { return type() == Type::string; }
  bool isNumber() const { return type() == Type::number; }
  bool isNull() const { return type() == Type::null; }

  // The contents when the value has this type, nothing otherwise.
  std::optional<bool> asBoolean() const;
  std::optional<std::string> asString() const;

  // An integral number that fits; "80.0" and "8e1" are 80.
  std::optional<std::int64_t> asInteger() const;

  // The nearest double; nothing when the number is too large for one.
  std::optional<double> asReal() const;

  // A number as it stands in the text.
  std::optional<std::string_view> numberText() const;

  // Whether this is a number without a fraction, of whatever size: 80, 80.0, 8e1, 1e400.
  bool isIntegral() const { return integerText().has_value(); }

  // An integral number in plain decimal: "80" for 8e1, "-80" for -8e1. Nothing for other numbers,
  // and for those of more than a thousand digits.
  std::optional<std::string> integerText() const;

  // The elements of an array, the members of an object, in order; none for any other type.
  Range<JSON> elements() const;
  Range<Member> members() const;

  // The value of the member of that name; nothing when there is none or this is no object.
  std::optional<JSON> member(std::string_view name) const;

  // The value as JSON text without blanks; numbers and strings as they stand in the parsed text.
  std::string text() const;
  void appendTo(std::string& text) const;

  // The same for an object, with other JSON text as the value of its member of that name.
  void appendTo(std::string& text, std::string_view member, std::string_view valueText) const;

private:
  JSON(std::shared_ptr<const JSONDocument> document, std::size_t node)
      : document_(std::move(document)), node_(node) {}
  static Result<JSON> parsed(std::shared_ptr<JSONDocument> document);
  std::size_t end() const;
  static bool isNamed(const JSONDocument& document, std::size_t node, std::string_view name);
  static std::size_t after(const JSONDocument& document, std::size_t node);

  std::shared_ptr<const JSONDocument> document_;
  std::size_t node_;
};

// A name of an object and its value.
//
//     for (const JSON::Member& member : json.members()) show(member.name, member.value.text());
struct JSON::Member {
  std::string name;
  JSON value;
};

// The children of one value. Each step of the iterator makes the handle of one child. See JSON.
template <class Item>
class JSON::Range {
public:
  class Iterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Item;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Item;

    Item operator*() const;
    Iterator& operator++();
    bool operator==(const Iterator& other) const { return node_ == other.node_; }

  private:
    friend class Range;
    Iterator(const std::shared_ptr<const JSONDocument>* document, std::size_t node)
        : document_(document), node_(node) {}
    const std::shared_ptr<const JSONDocument>* document_;
    std::size_t node_;
  };

  Iterator begin() const { return {&document_, begin_}; }
  Iterator end() const { return {&document_, end_}; }
  bool isEmpty() const { return begin_ == end_; }

private:
  friend class JSON;
  Range(std::shared_ptr<const JSONDocument> document, std::size_t begin, std::size_t end)
      : document_(std::move(document)), begin_(begin), end_(end) {}
  std::shared_ptr<const JSONDocument> document_;
  std::size_t begin_;
  std::size_t end_;
};

}  // namespace foundation
