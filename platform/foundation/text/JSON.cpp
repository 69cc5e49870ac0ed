// SPDX-License-Identifier: MIT
#include "foundation/JSON.hpp"

#include "foundation/Ascii.hpp"
#include "foundation/Unicode.hpp"
#include "text/JSONDocument.hpp"
#include "text/JSONEscape.hpp"
#include "text/JSONParser.hpp"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace foundation {

namespace {

constexpr std::int64_t kMaximumIntegerDigits = 1000;

std::string_view rawNumber(const JSONDocument& document, JSONNode node) {
  const std::string_view rest = document.text.substr(node.offset());
  const auto isPart = [](char c) {
    return isDigit(c) || c == '.' || c == '-' || c == '+' || (c | 0x20) == 'e';
  };
  return {rest.begin(), std::find_if_not(rest.begin(), rest.end(), isPart)};
}

// A decimal number: 0.<digits> times ten to the power of `pointAt`. The digits begin and end with
// no zero; zero has none.
struct Decimal {
  bool isNegative;
  std::string digits;
  std::int64_t pointAt;
};

std::int64_t exponent(std::string_view text) {
  constexpr std::int64_t beyondAnyNumber = 2'000'000'000;
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
  if (error != std::errc()) exponent = text.starts_with('-') ? -beyondAnyNumber : beyondAnyNumber;
  return std::clamp(exponent, -beyondAnyNumber, beyondAnyNumber);
}

Decimal decimal(std::string_view text) {
  Decimal number{.isNegative = text.front() == '-', .digits = {}, .pointAt = 0};
  if (number.isNegative) text.remove_prefix(1);
  const std::size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
  const std::string_view mantissa = text.substr(0, exponentAt);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  number.digits = mantissa.substr(0, point);
  if (point != mantissa.size()) number.digits += mantissa.substr(point + 1);
  const std::size_t leading = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  number.digits.erase(0, leading);
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) return number;
  number.pointAt = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
  if (exponentAt != text.size()) number.pointAt += exponent(text.substr(exponentAt + 1));
  return number;
}

// Appends the node's value as JSON text and returns the index of the node after it.
std::size_t append(const JSONDocument& document, std::size_t index, std::string& text) {
  const JSONNode node = document.nodes[index];
  const std::size_t end = index + node.length();
  switch (node.type()) {
    case JSON::Type::null: text += "null"; break;
    case JSON::Type::boolean: text += document.text[node.offset()] == 't' ? "true" : "false"; break;
    case JSON::Type::number: text += rawNumber(document, node); break;
    case JSON::Type::string:
      text += '"';
      text += rawString(document, node);
      text += '"';
      break;
    case JSON::Type::array:
      text += '[';
      for (std::size_t child = index + 1; child != end;) {
        if (child != index + 1) text += ',';
        child = append(document, child, text);
      }
      text += ']';
      break;
    case JSON::Type::object:
      text += '{';
      for (std::size_t child = index + 1; child != end;) {
        if (child != index + 1) text += ',';
        child = append(document, child, text);
        text += ':';
        child = append(document, child, text);
      }
      text += '}';
      break;
  }
  return end;
}

}  // namespace

std::string_view rawString(const JSONDocument& document, JSONNode node) {
  const std::string_view text = document.text.substr(node.offset() + 1);
  if (!node.isEscaped()) return text.substr(0, text.find('"'));
  std::size_t end = 0;
  while (text[end] != '"') end += text[end] == '\\' ? 2 : 1;
  return text.substr(0, end);
}

std::string decodedString(const JSONDocument& document, JSONNode node) {
  std::string_view raw = rawString(document, node);
  if (!node.isEscaped()) return std::string(raw);
  std::string decoded;
  decoded.reserve(raw.size());
  while (!raw.empty()) {
    const std::size_t plain = raw.find('\\');
    decoded += raw.substr(0, plain);
    if (plain == std::string_view::npos) break;
    raw.remove_prefix(plain);
    // The parser accepted the escape.
    appendUtf8(decoded, *takeJSONEscape(raw));
  }
  return decoded;
}

Result<JSON> JSON::parse(std::string text) {
  auto document = std::make_shared<JSONDocument>();
  document->owned = std::move(text);
  document->text = document->owned;
  return parsed(std::move(document));
}

Result<JSON> JSON::parseBorrowed(std::string_view text) {
  auto document = std::make_shared<JSONDocument>();
  document->text = text;
  return parsed(std::move(document));
}

Result<JSON> JSON::parsed(std::shared_ptr<JSONDocument> document) {
  if (auto error = parseJSON(*document)) return *std::move(error);
  return JSON(std::move(document), 0);
}

JSON::Type JSON::type() const { return document_->nodes[node_].type(); }

std::optional<bool> JSON::asBoolean() const {
  if (type() != Type::boolean) return std::nullopt;
  return document_->text[document_->nodes[node_].offset()] == 't';
}

std::optional<std::string> JSON::asString() const {
  if (!isString()) return std::nullopt;
  return decodedString(*document_, document_->nodes[node_]);
}

std::optional<std::string_view> JSON::numberText() const {
  if (!isNumber()) return std::nullopt;
  return rawNumber(*document_, document_->nodes[node_]);
}

std::optional<std::int64_t> JSON::asInteger() const {
  const auto text = integerText();
  std::int64_t number = 0;
  if (!text ||
      std::from_chars(text->data(), text->data() + text->size(), number).ec != std::errc()) {
    return std::nullopt;
  }
  return number;
}

std::optional<double> JSON::asReal() const {
  const auto text = numberText();
  if (!text) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  if (error == std::errc()) return number;
  // from_chars reports numbers that are too large and numbers that are too close to 0 by the same
  // error.
  if (decimal(*text).pointAt > 0) return std::nullopt;
  return text->front() == '-' ? -0.0 : 0.0;
}

std::optional<std::string> JSON::integerText() const {
  const auto text = numberText();
  if (!text) return std::nullopt;
  if (text->size() < 18 && text->find_first_of(".eE") == std::string_view::npos && *text != "-0") {
    return std::string(*text);
  }
  Decimal number = decimal(*text);
  if (number.digits.empty()) return "0";
  if (number.pointAt > kMaximumIntegerDigits ||
      number.pointAt < static_cast<std::int64_t>(number.digits.size())) {
    return std::nullopt;
  }
  number.digits.resize(static_cast<std::size_t>(number.pointAt), '0');
  return number.isNegative ? "-" + number.digits : number.digits;
}

std::size_t JSON::end() const { return after(*document_, node_); }

std::size_t JSON::after(const JSONDocument& document, std::size_t node) {
  return node + document.nodes[node].length();
}

JSON::Range<JSON> JSON::elements() const {
  return {document_, node_ + 1, isArray() ? end() : node_ + 1};
}

JSON::Range<JSON::Member> JSON::members() const {
  return {document_, node_ + 1, isObject() ? end() : node_ + 1};
}

bool JSON::isNamed(const JSONDocument& document, std::size_t node, std::string_view name) {
  const JSONNode candidate = document.nodes[node];
  if (candidate.isEscaped()) return decodedString(document, candidate) == name;
  // The text holds no escape, so its first quote ends it and a name with a quote cannot match.
  const std::string_view text = document.text.substr(candidate.offset() + 1);
  return text.starts_with(name) && name.find('"') == std::string_view::npos &&
         text[name.size()] == '"';
}

std::optional<JSON> JSON::member(std::string_view name) const {
  if (!isObject()) return std::nullopt;
  const std::size_t last = end();
  for (std::size_t node = node_ + 1; node != last; node = after(*document_, node + 1)) {
    if (isNamed(*document_, node, name)) return JSON(document_, node + 1);
  }
  return std::nullopt;
}

std::string JSON::text() const {
  std::string text;
  // The text's share of the document is estimated by its share of the nodes.
  const auto share =
      static_cast<double>(end() - node_) / static_cast<double>(document_->nodes.size());
  text.reserve(static_cast<std::size_t>(static_cast<double>(document_->text.size()) * share));
  appendTo(text);
  return text;
}

void JSON::appendTo(std::string& text) const { append(*document_, node_, text); }

void JSON::appendTo(std::string& text, std::string_view member, std::string_view valueText) const {
  if (!isObject()) return appendTo(text);
  const std::size_t last = end();
  text += '{';
  for (std::size_t node = node_ + 1; node != last; node = after(*document_, node + 1)) {
    if (node != node_ + 1) text += ',';
    append(*document_, node, text);
    text += ':';
    if (isNamed(*document_, node, member)) {
      text += valueText;
    } else {
      append(*document_, node + 1, text);
    }
  }
  text += '}';
}

template <>
JSON JSON::Range<JSON>::Iterator::operator*() const {
  return {*document_, node_};
}

template <>
JSON::Range<JSON>::Iterator& JSON::Range<JSON>::Iterator::operator++() {
  node_ = after(**document_, node_);
  return *this;
}

template <>
JSON::Member JSON::Range<JSON::Member>::Iterator::operator*() const {
  return {.name = decodedString(**document_, (*document_)->nodes[node_]),
          .value = JSON(*document_, node_ + 1)};
}

template <>
JSON::Range<JSON::Member>::Iterator& JSON::Range<JSON::Member>::Iterator::operator++() {
  node_ = after(**document_, node_ + 1);
  return *this;
}

}  // namespace foundation
