#include "PropertyListCheck.hpp"

#include "foundation/PreferenceCoding.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

namespace foundation {

namespace {

// What a list may unfold to, an object counting for some more than its contents.
constexpr std::uint64_t kMaximumCost = std::uint64_t{1} << 30;
constexpr std::uint64_t kObjectCost = 64;

Error tooDeep() {
  return {"the property list is nested deeper than " + std::to_string(kMaximumPreferenceDepth) +
          " levels; choose another"};
}
Error damaged() { return {"the property list is damaged; choose another"}; }
Error tooLarge() { return {"the property list unfolds to more than the store can hold; choose another"}; }
Error integerTooLarge() { return {"the property list holds an integer of more than 64 bits; choose another"}; }

bool fitsInteger(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return true;
  text.remove_prefix(first);
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t number = 0;
  const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (isHexadecimal) text.remove_prefix(2);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number, isHexadecimal ? 16 : 10);
  return result.ec != std::errc::result_out_of_range;
}

// Walks the objects of a binary list: a table of offsets at its end leads to them, and arrays and
// dictionaries name their contents by number.
class BinaryWalk {
public:
  explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

  std::optional<Error> fault() {
    constexpr std::size_t headerBytes = 8;
    constexpr std::size_t trailerBytes = 32;
    if (bytes_.size() < headerBytes + trailerBytes) return damaged();
    const std::size_t trailer = bytes_.size() - trailerBytes;
    offsetBytes_ = number(trailer + 6, 1);
    referenceBytes_ = number(trailer + 7, 1);
    const std::uint64_t count = number(trailer + 8, 8);
    const std::uint64_t top = number(trailer + 16, 8);
    table_ = number(trailer + 24, 8);
    if (offsetBytes_ == 0 || offsetBytes_ > 8 || referenceBytes_ == 0 || referenceBytes_ > 8 || count == 0 ||
        count > trailer || top >= count || table_ < headerBytes || table_ > trailer ||
        count > (trailer - table_) / offsetBytes_) {
      return damaged();
    }
    objects_.resize(count);
    visit(top, 0);
    return std::move(error_);
  }

private:
  struct Object {
    std::uint64_t cost = 0;  // unfolded; 0 while it is not known
    int height = 0;
    bool isOpen = false;
  };

  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t number = 0;
    for (const char c : bytes_.substr(at, size)) number = number << 8 | static_cast<std::uint8_t>(c);
    return number;
  }

  bool fail(Error error) {
    if (!error_) error_ = std::move(error);
    return false;
  }

  bool visit(std::uint64_t index, int depth) {
    if (index >= objects_.size()) return fail(damaged());
    Object& object = objects_[index];
    if (object.isOpen) return fail(damaged());
    if (depth + object.height > kMaximumPreferenceDepth + 1) return fail(tooDeep());
    if (object.cost != 0) return true;
    const std::uint64_t at = number(table_ + index * offsetBytes_, offsetBytes_);
    if (at >= table_) return fail(damaged());
    const auto marker = static_cast<std::uint8_t>(bytes_[at]);
    const unsigned kind = marker >> 4;
    object.cost = kObjectCost;
    switch (kind) {
      case 0x1:
        if ((marker & 0xF) > 3 && number(at + 1, 16) != 0) return fail(integerTooLarge());
        return true;
      case 0x4:
      case 0x5: return visitRun(object, at, 1);
      case 0x6: return visitRun(object, at, 2);
      case 0xA:
      case 0xC: return visitContents(object, at, 1, depth);
      case 0xD: return visitContents(object, at, 2, depth);
      default: return true;
    }
  }

  // How many things the object that begins there has; moves to the first.
  std::optional<std::uint64_t> count(std::uint64_t& at) const {
    const std::uint64_t inMarker = static_cast<std::uint8_t>(bytes_[at++]) & 0xF;
    if (inMarker != 0xF) return inMarker;
    if (at >= table_) return std::nullopt;
    const auto marker = static_cast<std::uint8_t>(bytes_[at++]);
    const std::size_t size = std::size_t{1} << (marker & 0xF);
    if (marker >> 4 != 1 || size > 8 || at + size > table_) return std::nullopt;
    const std::uint64_t counted = number(at, size);
    at += size;
    return counted;
  }

  bool visitRun(Object& object, std::uint64_t at, std::uint64_t unitBytes) {
    const bool isText = static_cast<std::uint8_t>(bytes_[at]) >> 4 != 0x4;
    const auto units = count(at);
    if (!units || *units > (table_ - at) / unitBytes) return fail(damaged());
    object.cost += *units * unitBytes;
    for (std::uint64_t unit = 0; isText && unit < *units; ++unit) {
      if (number(at + unit * unitBytes, unitBytes) == 0) {
        return fail({"the property list holds text with a NUL in it; choose another"});
      }
    }
    return true;
  }

  bool visitContents(Object& object, std::uint64_t at, std::uint64_t references, int depth) {
    const auto entries = count(at);
    if (!entries || *entries > (table_ - at) / referenceBytes_ / references) return fail(damaged());
    object.isOpen = true;
    std::uint64_t cost = object.cost;
    for (std::uint64_t i = 0; i < *entries * references; ++i) {
      const std::uint64_t index = number(at + i * referenceBytes_, referenceBytes_);
      if (!visit(index, depth + 1)) return false;
      cost += objects_[index].cost;
      object.height = std::max(object.height, objects_[index].height + 1);
      if (cost > kMaximumCost) return fail(tooLarge());
    }
    object.cost = cost;
    object.isOpen = false;
    return true;
  }

  std::string_view bytes_;
  std::size_t offsetBytes_ = 0;
  std::size_t referenceBytes_ = 0;
  std::uint64_t table_ = 0;
  std::vector<Object> objects_;
  std::optional<Error> error_;
};

}  // namespace

std::optional<Error> faultOfXmlPropertyList(std::string_view text) {
  int depth = 0;
  while (true) {
    const std::size_t open = text.find('<');
    if (open == std::string_view::npos) return std::nullopt;
    text.remove_prefix(open);
    // Nothing within these is a tag.
    const std::string_view end = text.starts_with("<!--") ? "-->" : text.starts_with("<![CDATA[") ? "]]>" : ">";
    const std::size_t close = text.find(end);
    if (close == std::string_view::npos) return std::nullopt;
    const std::string_view tag = text.substr(1, close - 1);
    text.remove_prefix(close + end.size());
    if (tag.ends_with('/')) continue;
    const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n"));
    if (name == "array" || name == "dict") {
      // The list itself is no level.
      if (++depth > kMaximumPreferenceDepth + 1) return tooDeep();
    } else if (name == "/array" || name == "/dict") {
      --depth;
    } else if (name == "integer" && !fitsInteger(text.substr(0, text.find('<')))) {
      return integerTooLarge();
    }
  }
}

std::optional<Error> faultOfBinaryPropertyList(std::string_view bytes) { return BinaryWalk(bytes).fault(); }

}  // namespace foundation
