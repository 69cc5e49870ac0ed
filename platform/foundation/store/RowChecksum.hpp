// SPDX-License-Identifier: MIT
#pragma once

#include "store/recovery/DatabaseCells.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace foundation {

// What the checksum of a row covers: its key, its type (none for a removed key) and its contents.
struct RowContents {
  std::string_view key;
  std::optional<std::int64_t> type;
  const DatabaseValue& value;
};

// The checksum that rows are written with, XXH3 with 64 bits:
//
//     XXH3(value, seed = XXH3(key, seed = type))
//
// The type of a removed key is -1. An integer or a real is hashed as its eight bytes, the least
// significant first; NULL is hashed as no bytes.
std::int64_t rowChecksum(const RowContents& row);

// Whether a row may have been written with this checksum: by rowChecksum, or by the function that
// stores of format 1 were written with.
bool isRowChecksum(std::int64_t checksum, const RowContents& row);

}  // namespace foundation
