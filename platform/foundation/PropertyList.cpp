#include "foundation/PropertyList.hpp"

#include "PropertyListCheck.hpp"
#include "foundation/Files.hpp"
#include "foundation/PreferenceCoding.hpp"
#include "foundation/Unicode.hpp"

#include <plist/plist.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

// Property lists count from here.
constexpr PreferenceValue::Date kEpoch = std::chrono::sys_days(std::chrono::January / 1 / 2001);

struct Free {
  void operator()(void* node) const { ::plist_free(node); }
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): the library allocated it
  void operator()(char* memory) const { std::free(memory); }
};
using Node = std::unique_ptr<void, Free>;
using Memory = std::unique_ptr<char, Free>;

// The library reads and writes reals with the decimal point of the thread's locale.
class PointAsDecimalMark {
public:
  PointAsDecimalMark()
      : locale_(::newlocale(LC_NUMERIC_MASK, "C", ::duplocale(::uselocale(nullptr)))), before_(::uselocale(locale_)) {}
  PointAsDecimalMark(const PointAsDecimalMark&) = delete;
  PointAsDecimalMark& operator=(const PointAsDecimalMark&) = delete;
  ~PointAsDecimalMark() {
    ::uselocale(before_);
    ::freelocale(locale_);
  }

private:
  locale_t locale_;
  locale_t before_;
};

Result<PreferenceValue> valueOf(plist_t node);

std::string textOf(plist_t node) {
  std::uint64_t length = 0;
  const char* text = ::plist_get_string_ptr(node, &length);
  return text != nullptr ? std::string(text, length) : std::string();
}

PreferenceValue dataOf(plist_t node) {
  std::uint64_t length = 0;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(::plist_get_data_ptr(node, &length));
  return bytes != nullptr ? PreferenceValue::Bytes(bytes, bytes + length) : PreferenceValue::Bytes();
}

PreferenceValue dateOf(plist_t node) {
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  ::plist_get_date_val(node, &seconds, &microseconds);
  // The fraction comes without its sign.
  const double fraction = std::abs(microseconds) / 1e6;
  return kEpoch + PreferenceValue::Date::duration(seconds + (seconds < 0 ? -fraction : fraction));
}

Result<PreferenceValue> arrayOf(plist_t node) {
  PreferenceValue::Array elements;
  plist_array_iter found = nullptr;
  ::plist_array_new_iter(node, &found);
  const Memory iterator(static_cast<char*>(found));
  for (plist_t item = nullptr; ::plist_array_next_item(node, found, &item), item != nullptr;) {
    auto element = valueOf(item);
    if (!element) return element.error();
    elements.push_back(*std::move(element));
  }
  return PreferenceValue(std::move(elements));
}

Result<PreferenceValue> dictionaryOf(plist_t node) {
  PreferenceDictionary entries;
  plist_dict_iter found = nullptr;
  ::plist_dict_new_iter(node, &found);
  const Memory iterator(static_cast<char*>(found));
  while (true) {
    char* key = nullptr;
    plist_t item = nullptr;
    ::plist_dict_next_item(node, found, &key, &item);
    const Memory owner(key);
    if (item == nullptr || key == nullptr) break;
    auto value = valueOf(item);
    if (!value) return value.error();
    entries.insert_or_assign(key, *std::move(value));
  }
  return PreferenceValue(std::move(entries));
}

Result<PreferenceValue> valueOf(plist_t node) {
  switch (::plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t boolean = 0;
      ::plist_get_bool_val(node, &boolean);
      return PreferenceValue(boolean != 0);
    }
    case PLIST_UINT: {
      std::uint64_t integer = 0;
      ::plist_get_uint_val(node, &integer);
      return PreferenceValue(static_cast<std::int64_t>(integer));
    }
    case PLIST_REAL: {
      double real = 0;
      ::plist_get_real_val(node, &real);
      return PreferenceValue(real);
    }
    case PLIST_STRING: return PreferenceValue(textOf(node));
    case PLIST_DATA: return dataOf(node);
    case PLIST_DATE: return dateOf(node);
    case PLIST_ARRAY: return arrayOf(node);
    case PLIST_DICT: return dictionaryOf(node);
    default: return Error{"the property list holds a value of a type that the store has not; choose another"};
  }
}

// Makes the library's nodes of our values.
class Builder {
public:
  explicit Builder(PropertyListFormat format) : format_(format) {}

  Result<Node> dictionary(const PreferenceDictionary& entries, int depth) {
    Node node(::plist_new_dict());
    for (const auto& [key, value] : entries) {
      if (auto outcome = check(key); !outcome) return outcome.error();
      auto made = this->value(value, depth + 1);
      if (!made) return made.error();
      ::plist_dict_set_item(node.get(), key.c_str(), (*made).release());
    }
    return node;
  }

private:
  Result<Node> value(const PreferenceValue& value, int depth) {
    if (depth > kMaximumPreferenceDepth + 1) {
      return Error{"a value is nested deeper than " + std::to_string(kMaximumPreferenceDepth) + " levels"};
    }
    switch (value.type()) {
      case PreferenceValue::Type::integer:
        return Node(::plist_new_uint(static_cast<std::uint64_t>(*value.asInteger())));
      case PreferenceValue::Type::boolean: return Node(::plist_new_bool(*value.asBoolean() ? 1 : 0));
      case PreferenceValue::Type::real: return Node(::plist_new_real(*value.asReal()));
      case PreferenceValue::Type::string:
        if (auto outcome = check(*value.asString()); !outcome) return outcome.error();
        return Node(::plist_new_string(value.asString()->c_str()));
      case PreferenceValue::Type::data: {
        const auto& bytes = *value.asData();
        return Node(::plist_new_data(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
      }
      case PreferenceValue::Type::date: return date(*value.asDate());
      case PreferenceValue::Type::array: {
        Node node(::plist_new_array());
        for (const PreferenceValue& element : *value.asArray()) {
          auto made = this->value(element, depth + 1);
          if (!made) return made.error();
          ::plist_array_append_item(node.get(), (*made).release());
        }
        return node;
      }
      case PreferenceValue::Type::dictionary: return dictionary(*value.asDictionary(), depth);
    }
    return Error{"a value has no type"};
  }

  Result<Node> date(PreferenceValue::Date date) const {
    const double seconds = (date - kEpoch).count();
    const double whole = std::floor(seconds);
    using Seconds = std::numeric_limits<std::int32_t>;
    if (std::isnan(whole) || whole < Seconds::min() || whole > Seconds::max()) {
      return Error{"a property list holds no date before 1933 or after 2069; remove it first"};
    }
    const auto microseconds = format_ == PropertyListFormat::binary ? std::lround((seconds - whole) * 1e6) : 0L;
    return Node(::plist_new_date(static_cast<std::int32_t>(whole), static_cast<std::int32_t>(microseconds)));
  }

  Outcome check(const std::string& text) const {
    if (!isValidUtf8(text)) return Error{"a property list holds no text that is not UTF-8; remove it first"};
    for (const char c : text) {
      const bool isBlank = c == '\t' || c == '\n' || c == '\r';
      if (c == '\0' || (format_ == PropertyListFormat::xml && c >= 0 && c < ' ' && !isBlank)) {
        return Error{"a property list of this format holds no text with control characters; " +
                     std::string(c != '\0' ? "choose the binary format" : "remove it first")};
      }
    }
    return done();
  }

  PropertyListFormat format_;
};

}  // namespace

Result<PreferenceDictionary> parsePropertyList(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) return Error{"the property list is larger than 4 GB"};
  const auto length = static_cast<std::uint32_t>(bytes.size());
  const bool isBinary = bytes.starts_with("bplist");
  if (auto fault = isBinary ? faultOfBinaryPropertyList(bytes) : faultOfXmlPropertyList(bytes))
    return *std::move(fault);
  const PointAsDecimalMark guard;
  plist_t parsed = nullptr;
  if (isBinary) {
    ::plist_from_bin(bytes.data(), length, &parsed);
  } else if (length > 0) {
    ::plist_from_xml(bytes.data(), length, &parsed);
  }
  const Node root(parsed);
  if (!root) return Error{"this is no property list; choose another file"};
  if (::plist_get_node_type(root.get()) != PLIST_DICT) {
    return Error{"the property list is no dictionary of keys and values; choose another"};
  }
  auto value = dictionaryOf(root.get());
  if (!value) return value.error();
  return *value->asDictionary();
}

Result<PreferenceDictionary> readPropertyList(const std::filesystem::path& path) {
  const auto bytes = readFile(path);
  if (!bytes) return bytes.error();
  auto values = parsePropertyList(*bytes);
  if (!values) return Error{path.string() + ": " + values.error().message};
  return values;
}

Result<std::string> propertyListBytes(const PreferenceDictionary& values, PropertyListFormat format) {
  const PointAsDecimalMark guard;
  const auto root = Builder(format).dictionary(values, 0);
  if (!root) return root.error();
  char* made = nullptr;
  std::uint32_t length = 0;
  if (format == PropertyListFormat::xml) {
    ::plist_to_xml(root->get(), &made, &length);
  } else {
    ::plist_to_bin(root->get(), &made, &length);
  }
  const Memory owner(made);
  if (made == nullptr) return Error{"the property list cannot be made; there may be too little memory for it"};
  return std::string(made, length);
}

Outcome writePropertyList(const PreferenceDictionary& values, const std::filesystem::path& path,
                          PropertyListFormat format) {
  const auto bytes = propertyListBytes(values, format);
  if (!bytes) return bytes.error();
  return writeFile(path, *bytes);
}

}  // namespace foundation
