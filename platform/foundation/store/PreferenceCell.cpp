// SPDX-License-Identifier: MIT
#include "store/PreferenceCell.hpp"

#include "foundation/PreferenceCoding.hpp"
#include "store/RowChecksum.hpp"

#include <sqlite3.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;

namespace {

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

std::optional<PreferenceCell> PreferenceCell::ofValue(const std::optional<PreferenceValue>& value) {
  PreferenceCell cell;
  if (!value) return cell;
  cell.type_ = static_cast<std::int64_t>(value->type());
  // SQLite stores not-a-number as NULL.
  const auto real = [&](double number) {
    if (!std::isnan(number)) cell.contents_ = number;
  };
  switch (value->type()) {
    case PreferenceValue::Type::integer: cell.contents_ = *value->asInteger(); break;
    case PreferenceValue::Type::boolean:
      cell.contents_ = std::int64_t{*value->asBoolean() ? 1 : 0};
      break;
    case PreferenceValue::Type::real: real(*value->asReal()); break;
    case PreferenceValue::Type::date: real(value->asDate()->time_since_epoch().count()); break;
    case PreferenceValue::Type::data: cell.contents_ = Bytes(*value->asData()); break;
    case PreferenceValue::Type::string:
      cell.contents_ = bytesOf(*value->asString());
      cell.isText_ = true;
      break;
    case PreferenceValue::Type::array:
    case PreferenceValue::Type::dictionary: {
      auto encoded = encodedPreference(*value);
      if (!encoded) return std::nullopt;
      cell.encoded_ = *std::move(encoded);
      cell.contents_ = Bytes(cell.encoded_);
      break;
    }
  }
  return cell;
}

PreferenceCell PreferenceCell::ofColumns(sqlite3_stmt* row, int typeColumn, int valueColumn) {
  PreferenceCell cell;
  if (sqlite3_column_type(row, typeColumn) == SQLITE_INTEGER)
    cell.type_ = sqlite3_column_int64(row, typeColumn);
  switch (sqlite3_column_type(row, valueColumn)) {
    case SQLITE_INTEGER:
      cell.contents_ = std::int64_t{sqlite3_column_int64(row, valueColumn)};
      break;
    case SQLITE_FLOAT: cell.contents_ = sqlite3_column_double(row, valueColumn); break;
    case SQLITE_TEXT:
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_column_blob(row, valueColumn));
      cell.contents_ =
          Bytes(bytes, static_cast<std::size_t>(sqlite3_column_bytes(row, valueColumn)));
      cell.isText_ = sqlite3_column_type(row, valueColumn) == SQLITE_TEXT;
      break;
    }
    default: break;
  }
  return cell;
}

std::optional<PreferenceCell> PreferenceCell::ofRecord(const DatabaseValue& type,
                                                       const DatabaseValue& value) {
  const auto* number = std::get_if<std::int64_t>(&type);
  if (number == nullptr && !std::holds_alternative<std::monostate>(type)) return std::nullopt;
  PreferenceCell cell;
  if (number != nullptr) cell.type_ = *number;
  cell.contents_ = value;
  return cell;
}

std::optional<std::int64_t> PreferenceCell::integer() const {
  const auto* integer = std::get_if<std::int64_t>(&contents_);
  return integer != nullptr ? std::optional(*integer) : std::nullopt;
}

std::size_t PreferenceCell::byteCount() const {
  if (const auto* bytes = std::get_if<Bytes>(&contents_)) return bytes->size();
  return std::holds_alternative<std::monostate>(contents_) ? 0 : sizeof(std::int64_t);
}

PreferenceCell PreferenceCell::withoutContents(std::int64_t addedToType,
                                               std::optional<std::int64_t> contents) const {
  PreferenceCell cell;
  if (type_) cell.type_ = *type_ + addedToType;
  if (contents) cell.contents_ = *contents;
  return cell;
}

std::int64_t PreferenceCell::sum(std::string_view key) const {
  return rowChecksum({.key = key, .type = type_, .value = contents_});
}

bool PreferenceCell::hasSum(std::int64_t sum, std::string_view key) const {
  return isRowChecksum(sum, {.key = key, .type = type_, .value = contents_});
}

void PreferenceCell::bind(sqlite3_stmt* statement, int typeParameter, int valueParameter) const {
  if (type_) sqlite3_bind_int64(statement, typeParameter, *type_);
  if (const auto* integer = std::get_if<std::int64_t>(&contents_)) {
    sqlite3_bind_int64(statement, valueParameter, *integer);
  } else if (const auto* real = std::get_if<double>(&contents_)) {
    sqlite3_bind_double(statement, valueParameter, *real);
  } else if (const auto* bytes = std::get_if<Bytes>(&contents_)) {
    // SQLite binds NULL for a null pointer, which an empty text or blob may have.
    const auto* start = bytes->empty() ? "" : reinterpret_cast<const char*>(bytes->data());
    if (isText_) {
      sqlite3_bind_text64(statement, valueParameter, start, bytes->size(), SQLITE_STATIC,
                          SQLITE_UTF8);
    } else {
      sqlite3_bind_blob64(statement, valueParameter, start, bytes->size(), SQLITE_STATIC);
    }
  }
}

std::optional<PreferenceValue> PreferenceCell::value() const {
  if (!type_) return std::nullopt;
  const auto* integer = std::get_if<std::int64_t>(&contents_);
  const auto* real = std::get_if<double>(&contents_);
  const auto* bytes = std::get_if<Bytes>(&contents_);
  const bool isReal = real != nullptr || std::holds_alternative<std::monostate>(contents_);
  const double number = real != nullptr ? *real : std::numeric_limits<double>::quiet_NaN();
  switch (static_cast<PreferenceValue::Type>(*type_)) {
    case PreferenceValue::Type::integer:
      return integer != nullptr ? std::optional<PreferenceValue>(*integer) : std::nullopt;
    case PreferenceValue::Type::boolean:
      return integer != nullptr ? std::optional<PreferenceValue>(*integer != 0) : std::nullopt;
    case PreferenceValue::Type::real:
      return isReal ? std::optional<PreferenceValue>(number) : std::nullopt;
    case PreferenceValue::Type::date:
      if (!isReal) return std::nullopt;
      return PreferenceValue::Date(PreferenceValue::Date::duration(number));
    case PreferenceValue::Type::string:
      if (bytes == nullptr) return std::nullopt;
      return std::string(bytes->begin(), bytes->end());
    case PreferenceValue::Type::data:
      if (bytes == nullptr) return std::nullopt;
      return PreferenceValue::Bytes(bytes->begin(), bytes->end());
    case PreferenceValue::Type::array:
    case PreferenceValue::Type::dictionary: {
      auto decoded = bytes != nullptr ? decodedPreference(*bytes) : std::nullopt;
      const bool isOfTheColumnsType =
          decoded && static_cast<std::int64_t>(decoded->type()) == *type_;
      return isOfTheColumnsType ? std::move(decoded) : std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace foundation
