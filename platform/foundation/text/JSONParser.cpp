// SPDX-License-Identifier: MIT
#include "text/JSONParser.hpp"

#include "foundation/Ascii.hpp"
#include "foundation/Unicode.hpp"
#include "text/JSONEscape.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>
#include <utility>

namespace foundation {

namespace {

// Looks at eight bytes of a string at once. Sets the top bit of each byte that is a quote, a
// backslash, a control character or not ASCII. Bits above the lowest one that is set may be set in
// error.
std::uint64_t specialBytes(std::uint64_t word) {
  constexpr std::uint64_t ones = 0x0101010101010101;
  constexpr std::uint64_t tops = 0x8080808080808080;
  const auto isZero = [](std::uint64_t bytes) { return (bytes - ones) & ~bytes & tops; };
  return isZero(word ^ (ones * '"')) | isZero(word ^ (ones * '\\')) |
         ((word - ones * 0x20) & ~word & tops) | (word & tops);
}

class Parser {
public:
  explicit Parser(JSONDocument& document)
      : document_(document),
        nodes_(document.nodes),
        begin_(document.text.data()),
        at_(begin_),
        end_(begin_ + document.text.size()) {}

  std::optional<Error> parse() {
    if (document_.text.starts_with("\xEF\xBB\xBF")) at_ += 3;
    // Reserved memory that is never written takes no physical memory, so a high estimate costs
    // nothing.
    nodes_.reserve(document_.text.size() / 4 + 4);
    skipBlanks();
    if (value(0)) {
      skipBlanks();
      if (at_ != end_) fail("nothing more was expected");
    }
    return std::move(error_);
  }

private:
  // The name of a member of an object that is not yet closed.
  struct Name {
    std::size_t node;
    std::uint64_t fingerprint;  // equal names have equal fingerprints
  };

  bool fail(std::string_view what) {
    error_ = Error{"the JSON text goes wrong at byte " + std::to_string(at_ - begin_) + ": " +
                   std::string(what)};
    return false;
  }

  std::size_t offset() const { return static_cast<std::size_t>(at_ - begin_); }
  bool isAt(char c) const { return at_ != end_ && *at_ == c; }

  void skipBlanks() {
    while (at_ != end_ && isBlank(*at_)) ++at_;
  }

  bool value(int depth) {
    if (at_ == end_) return fail("a value was expected");
    switch (*at_) {
      case '"': return string();
      case '{': return object(depth + 1);
      case '[': return array(depth + 1);
      case 't': return word("true", JSON::Type::boolean);
      case 'f': return word("false", JSON::Type::boolean);
      case 'n': return word("null", JSON::Type::null);
      default: return *at_ == '-' || isDigit(*at_) ? number() : fail("a value was expected");
    }
  }

  bool word(std::string_view expected, JSON::Type type) {
    if (!std::string_view(at_, end_).starts_with(expected)) return fail("a value was expected");
    nodes_.push_back(JSONNode::scalar(type, offset()));
    at_ += expected.size();
    return true;
  }

  bool digits() {
    if (at_ == end_ || !isDigit(*at_)) return fail("a digit was expected");
    while (at_ != end_ && isDigit(*at_)) ++at_;
    return true;
  }

  bool number() {
    nodes_.push_back(JSONNode::scalar(JSON::Type::number, offset()));
    if (isAt('-')) ++at_;
    if (isAt('0')) {
      ++at_;
      if (at_ != end_ && isDigit(*at_)) return fail("a number has no zeros before it");
    } else if (!digits()) {
      return false;
    }
    if (isAt('.')) {
      ++at_;
      if (!digits()) return false;
    }
    if (isAt('e') || isAt('E')) {
      ++at_;
      if (isAt('+') || isAt('-')) ++at_;
      if (!digits()) return false;
    }
    return true;
  }

  bool string() {
    const std::size_t start = offset();
    bool isEscaped = false;
    ++at_;
    while (true) {
      skipPlainCharacters();
      if (at_ == end_) return fail("the text ends within a string");
      const char c = *at_;
      if (c == '"') break;
      if (c == '\\') {
        isEscaped = true;
        if (!escape()) return false;
      } else if (static_cast<unsigned char>(c) < 0x20) {
        return fail("a control character in a string has to be escaped");
      } else {
        const std::size_t length = utf8CharacterLength({at_, end_});
        if (length == 0) return fail("this is not UTF-8");
        at_ += length;
      }
    }
    ++at_;
    nodes_.push_back(JSONNode::string(start, isEscaped));
    return true;
  }

  void skipPlainCharacters() {
    if constexpr (std::endian::native == std::endian::little) {
      while (end_ - at_ >= 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, at_, 8);
        const std::uint64_t found = specialBytes(word);
        if (found != 0) {
          at_ += std::countr_zero(found) / 8;
          return;
        }
        at_ += 8;
      }
    }
    while (at_ != end_ && specialBytes(static_cast<unsigned char>(*at_) | 0x2020202020202000) == 0)
      ++at_;
  }

  bool escape() {
    std::string_view rest(at_, end_);
    const auto codePoint = takeJSONEscape(rest);
    if (!codePoint) return fail(codePoint.error().message);
    at_ = rest.data();
    return true;
  }

  bool array(int depth) {
    if (depth > kMaximumJSONDepth) return failOfDepth();
    const std::size_t start = open(JSON::Type::array);
    if (isAt(']')) return close(JSON::Type::array, start);
    while (true) {
      if (!value(depth)) return false;
      skipBlanks();
      if (isAt(']')) return close(JSON::Type::array, start);
      if (!isAt(',')) return fail("a comma or the end of the array was expected");
      ++at_;
      skipBlanks();
    }
  }

  bool object(int depth) {
    if (depth > kMaximumJSONDepth) return failOfDepth();
    const std::size_t start = open(JSON::Type::object);
    if (isAt('}')) return close(JSON::Type::object, start);
    const std::size_t firstName = names_.size();
    while (true) {
      if (!isAt('"')) return fail("the name of a member was expected");
      const std::size_t name = nodes_.size();
      if (!string()) return false;
      const std::size_t begin = nodes_[name].offset() + 1;
      const std::string_view raw(begin_ + begin, offset() - begin - 1);
      const bool isEscaped = nodes_[name].isEscaped();
      names_.push_back(
          {.node = name,
           .fingerprint = fingerprintOf(isEscaped ? decodedString(document_, nodes_[name]) : raw)});
      skipBlanks();
      if (!isAt(':')) return fail("a colon was expected");
      ++at_;
      skipBlanks();
      if (!value(depth)) return false;
      skipBlanks();
      if (isAt('}')) break;
      if (!isAt(',')) return fail("a comma or the end of the object was expected");
      ++at_;
      skipBlanks();
    }
    if (mayHaveDuplicates(firstName)) removeDuplicates(start, firstName);
    names_.resize(firstName);
    return close(JSON::Type::object, start);
  }

  bool failOfDepth() {
    return fail("arrays and objects are nested too deep; 512 levels are allowed");
  }

  std::size_t open(JSON::Type type) {
    const std::size_t start = nodes_.size();
    nodes_.push_back(JSONNode::container(type, 0));
    ++at_;
    skipBlanks();
    return start;
  }

  bool close(JSON::Type type, std::size_t start) {
    ++at_;
    nodes_[start] = JSONNode::container(type, nodes_.size() - start);
    return true;
  }

  static std::uint64_t fingerprintOf(std::string_view name) {
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    const std::size_t count = std::min<std::size_t>(name.size(), 8);
    std::memcpy(&head, name.data(), count);
    std::memcpy(&tail, name.data() + name.size() - count, count);
    return head ^ std::rotl(tail, 23) ^ (name.size() << 56);
  }

  // Whether two names of an object may be equal. Comparing each pair is worth its time only for few
  // names.
  bool mayHaveDuplicates(std::size_t firstName) {
    constexpr std::ptrdiff_t few = 16;
    const auto begin = names_.begin() + static_cast<std::ptrdiff_t>(firstName);
    if (names_.end() - begin > few) return true;
    for (auto name = begin; name != names_.end(); ++name) {
      for (auto earlier = begin; earlier != name; ++earlier) {
        if (earlier->fingerprint == name->fingerprint) return true;
      }
    }
    return false;
  }

  // Where members share a name, keeps one: in the place of the first, with the value of the last.
  void removeDuplicates(std::size_t object, std::size_t firstName) {
    struct Entry {
      std::uint64_t fingerprint;
      std::size_t node;
      std::size_t order;
    };
    std::vector<Entry> sorted;
    for (std::size_t i = firstName; i < names_.size(); ++i) {
      sorted.push_back(
          {.fingerprint = names_[i].fingerprint, .node = names_[i].node, .order = i - firstName});
    }
    const auto compare = [this](const Entry& a, const Entry& b) {
      return a.fingerprint != b.fingerprint ? (a.fingerprint < b.fingerprint ? -1 : 1)
                                            : compareNames(nodes_[a.node], nodes_[b.node]);
    };
    std::sort(sorted.begin(), sorted.end(), [&](const Entry& a, const Entry& b) {
      const int order = compare(a, b);
      return order != 0 ? order < 0 : a.order < b.order;
    });
    // For each member, in order: the name node of the member whose value it takes, 0 when the
    // member is removed.
    std::vector<std::size_t> valueOf(sorted.size(), 0);
    bool hasDuplicates = false;
    for (std::size_t first = 0; first < sorted.size();) {
      std::size_t last = first;
      while (last + 1 < sorted.size() && compare(sorted[first], sorted[last + 1]) == 0) ++last;
      valueOf[sorted[first].order] = sorted[last].node;
      hasDuplicates = hasDuplicates || last != first;
      first = last + 1;
    }
    if (!hasDuplicates) return;
    std::vector<JSONNode> kept;
    for (std::size_t i = 0; i < valueOf.size(); ++i) {
      if (valueOf[i] == 0) continue;
      kept.push_back(nodes_[names_[firstName + i].node]);
      const auto value = nodes_.begin() + static_cast<std::ptrdiff_t>(valueOf[i]) + 1;
      kept.insert(kept.end(), value, value + static_cast<std::ptrdiff_t>(value->length()));
    }
    nodes_.resize(object + 1, JSONNode::container(JSON::Type::object, 0));
    nodes_.insert(nodes_.end(), kept.begin(), kept.end());
  }

  int compareNames(JSONNode a, JSONNode b) const {
    if (!a.isEscaped() && !b.isEscaped())
      return rawString(document_, a).compare(rawString(document_, b));
    return decodedString(document_, a).compare(decodedString(document_, b));
  }

  JSONDocument& document_;
  std::vector<JSONNode>& nodes_;
  const char* begin_;
  const char* at_;
  const char* end_;
  std::vector<Name> names_;  // of all objects that are not yet closed, the innermost last
  std::optional<Error> error_;
};

}  // namespace

std::optional<Error> parseJSON(JSONDocument& document) { return Parser(document).parse(); }

}  // namespace foundation
