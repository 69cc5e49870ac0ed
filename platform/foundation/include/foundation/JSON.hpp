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

// How deep arrays and objects may be nested in a text that is to be parsed.
inline constexpr int kMaximumJSONDepth = 512;

// A value of a parsed JSON text (RFC 8259), to be read. JSONWriter makes texts.
//
//     const auto list = JSON::parse(R"([{"name": "DNS", "port": 53}])");
//     if (!list) return report(list.error());
//     for (const JSON& record : list->elements()) use(record.member("name"));
//
// Nothing is lost on the way: a number keeps its text, however large or precise it is, and an object the
// order of its members. Where a name occurs twice in an object, the last value counts, in the place of
// the first.
//
// A value is a cheap handle that keeps the whole text alive; a document takes eight bytes for each of its
// values besides the text itself. Immutable, so any thread may read it.
class JSON {
public:
  enum class Type { null, boolean, number, string, array, object };
  struct Member;
  template <class Item>
  class Range;

  // The value of a whole text, which is strict UTF-8 (a byte-order mark is skipped) and nested at most
  // kMaximumJSONDepth deep. The error names the byte where the text goes wrong.
  static Result<JSON> parse(std::string text);

  // The same without a copy of the text, which the caller keeps as long as any value of it.
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

  // A number that is integral and fits; "80.0" and "8e1" are 80.
  std::optional<std::int64_t> asInteger() const;

  // The nearest real; nothing when the number is beyond the range of reals.
  std::optional<double> asReal() const;

  // A number as it stands in the text.
  std::optional<std::string_view> numberText() const;

  // Whether this is a number without a fraction, of whatever size: 80, 80.0, 8e1, 1e400.
  bool isIntegral() const { return integerText().has_value(); }

  // An integral number in plain decimal, with a minus sign when it is below zero: 8e1 is "80". Nothing
  // for other numbers, and for those of more than a thousand digits.
  std::optional<std::string> integerText() const;

  // The elements of an array, the members of an object, in order; none for any other type.
  Range<JSON> elements() const;
  Range<Member> members() const;

  // The value under a name; nothing when the object has no such member, or when this is no object.
  std::optional<JSON> member(std::string_view name) const;

  // The value as JSON text without blanks; numbers and strings as they stand in the parsed text.
  std::string text() const;
  void appendTo(std::string& text) const;

  // The same for an object, with other JSON text as the value of its member of that name.
  void appendTo(std::string& text, std::string_view member, std::string_view valueText) const;

private:
  JSON(std::shared_ptr<const JSONDocument> document, std::size_t node) : document_(std::move(document)), node_(node) {}
  static Result<JSON> parsed(std::shared_ptr<JSONDocument> document);
  std::size_t end() const;
  static bool isNamed(const JSONDocument& document, std::size_t node, std::string_view name);
  static std::size_t after(const JSONDocument& document, std::size_t node);

  std::shared_ptr<const JSONDocument> document_;
  std::size_t node_;
};

// A name of an object and its value.
struct JSON::Member {
  std::string name;
  JSON value;
};

// Walks over the children of one value; each step makes the child's handle.
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
