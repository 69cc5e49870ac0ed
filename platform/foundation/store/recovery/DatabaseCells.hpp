// SPDX-License-Identifier: MIT
#pragma once

#include "store/recovery/RawDatabaseFile.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace foundation {

// A column: NULL, an integer, a real, or the bytes of a text or a blob.
using DatabaseValue =
    std::variant<std::monostate, std::int64_t, double, std::span<const std::uint8_t>>;

// The columns of a row or of an index entry; nothing for invalid bytes. The values refer to the
// bytes.
std::optional<std::vector<DatabaseValue>> columnsOfRecord(std::span<const std::uint8_t> record);

// Reads the cells of single database pages without SQLite. Does not trust the page: cells that do
// not fit are left out, and damaged cells may yield wrong columns.
class DatabaseCells {
public:
  // Returns the page with a number, empty when there is none. Long rows continue on other pages.
  using PageSource = std::function<std::span<const std::uint8_t>(std::uint32_t number)>;
  using RowReceiver = std::function<void(std::int64_t row, std::span<const std::uint8_t> record)>;
  using EntryReceiver = std::function<void(std::span<const std::uint8_t> record)>;

  // `budget` limits the bytes that are read from other pages.
  DatabaseCells(PageSource pages, std::uint64_t budget)
      : pages_(std::move(pages)), budget_(budget) {}

  // Hands over the rows of a table's page, or the entries of an index's page.
  void read(std::span<const std::uint8_t> page, bool isFirstPage, const RowReceiver& row,
            const EntryReceiver& entry);

private:
  std::span<const std::uint8_t> recordOf(std::span<const std::uint8_t> cell, std::uint64_t size,
                                         bool isTable);

  PageSource pages_;
  std::uint64_t budget_;
  FileBytes gathered_;
};

}  // namespace foundation
