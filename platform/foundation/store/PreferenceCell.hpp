// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "store/recovery/DatabaseCells.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3_stmt;

namespace foundation {

// A preference as its row holds it: a type and a value of SQLite's.
class PreferenceCell {
public:
  // Makes the cell of a value; no value stands for a removed key. The cell refers to the value's
  // text and bytes. Fails for a value that is nested too deep.
  static std::optional<PreferenceCell> ofValue(
      const std::optional<QEVSettings::PreferenceValue>& value);

  // Reads the cell from two columns of a row. Valid until the statement moves on.
  static PreferenceCell ofColumns(sqlite3_stmt* row, int typeColumn, int valueColumn);

  // Reads the cell from two columns of a row that was read without SQLite. Nothing for an unknown
  // type. The cell refers to the row's bytes.
  static std::optional<PreferenceCell> ofRecord(const DatabaseValue& type,
                                                const DatabaseValue& value);

  // The checksum to write a row of this cell with.
  std::int64_t sum(std::string_view key) const;

  // Whether a row of this cell may have been written with this checksum, by any release.
  bool hasSum(std::int64_t sum, std::string_view key) const;

  void bind(sqlite3_stmt* statement, int typeParameter, int valueParameter) const;

  bool isRemoval() const { return !type_; }

  // Nothing for a removed key.
  std::optional<std::int64_t> type() const { return type_; }
  // The contents when they are an integer.
  std::optional<std::int64_t> integer() const;
  // The length of a text or of bytes, as they are stored; 8 for a number, 0 for NULL.
  std::size_t byteCount() const;

  // The cell with a number added to its type, and an integer or NULL in place of its contents.
  PreferenceCell withoutContents(std::int64_t addedToType,
                                 std::optional<std::int64_t> contents) const;

  // Nothing when no release writes such a cell.
  std::optional<QEVSettings::PreferenceValue> value() const;

private:
  using Bytes = std::span<const std::uint8_t>;

  std::optional<std::int64_t> type_;
  DatabaseValue contents_;
  bool isText_ = false;
  std::vector<std::uint8_t>
      encoded_;  // what the contents refer to, when that is not the value itself
};

}  // namespace foundation
