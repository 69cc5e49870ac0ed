// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/JSON.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

// One value of a document, in eight bytes: large lists have millions. A scalar keeps the offset at
// which its text begins; its end is searched for when it is read. A container keeps the number of
// nodes that it and its contents take, so that it can be skipped.
class JSONNode {
public:
  static JSONNode scalar(JSON::Type type, std::size_t offset) { return JSONNode(type, offset); }
  static JSONNode string(std::size_t offset, bool isEscaped) {
    JSONNode node(JSON::Type::string, offset);
    if (isEscaped) node.bits_ |= kEscaped;
    return node;
  }
  static JSONNode container(JSON::Type type, std::size_t length) { return JSONNode(type, length); }

  JSON::Type type() const { return static_cast<JSON::Type>(bits_ >> kTypeShift); }
  bool isEscaped() const { return (bits_ & kEscaped) != 0; }
  std::size_t offset() const { return bits_ & kPayload; }
  std::size_t length() const {
    return type() == JSON::Type::array || type() == JSON::Type::object ? bits_ & kPayload : 1;
  }

private:
  static constexpr int kTypeShift = 61;
  static constexpr std::uint64_t kEscaped = std::uint64_t{1} << 60;
  static constexpr std::uint64_t kPayload = kEscaped - 1;

  JSONNode(JSON::Type type, std::size_t payload)
      : bits_(static_cast<std::uint64_t>(type) << kTypeShift |
              static_cast<std::uint64_t>(payload)) {}

  std::uint64_t bits_;
};

struct JSONDocument {
  std::string owned;      // the text, empty when it is borrowed
  std::string_view text;  // the whole text, owned or borrowed
  // In the order of the text: a container before its contents, a name before its value.
  std::vector<JSONNode> nodes;
};

// The characters between the quotes of a string node, with escapes as they stand in the text.
std::string_view rawString(const JSONDocument& document, JSONNode node);

// The value of a string node: its escapes are replaced by what they stand for.
std::string decodedString(const JSONDocument& document, JSONNode node);

}  // namespace foundation
