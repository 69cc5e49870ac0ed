// SPDX-License-Identifier: MIT
#include "store/recovery/DatabaseCells.hpp"

#include "store/recovery/DatabaseBytes.hpp"

#include <algorithm>
#include <bit>

namespace foundation {

namespace {

constexpr std::size_t kFileHeaderBytes = 100;
constexpr std::uint8_t kTableLeaf = 13;
constexpr std::uint8_t kIndexLeaf = 10;
constexpr std::uint8_t kIndexInterior = 2;

std::int64_t signedInteger(std::span<const std::uint8_t> bytes) {
  std::uint64_t number = (bytes[0] & 0x80U) != 0 ? ~std::uint64_t{0} : 0;
  for (const std::uint8_t byte : bytes) number = number << 8 | byte;
  return static_cast<std::int64_t>(number);
}

// Removes the column with this type from the front of the body, and returns it.
std::optional<DatabaseValue> takeColumn(std::uint64_t type, std::span<const std::uint8_t>& body) {
  constexpr std::uint64_t sizes[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
  if (type == 10 || type == 11) return std::nullopt;
  const std::uint64_t size = type >= 12 ? (type - 12) / 2 : sizes[type];
  if (size > body.size()) return std::nullopt;
  const auto bytes = body.first(static_cast<std::size_t>(size));
  body = body.subspan(bytes.size());
  if (type >= 12) return bytes;
  switch (type) {
    case 0: return std::monostate();
    case 7: return std::bit_cast<double>(bigEndian64(bytes));
    case 8: return std::int64_t{0};
    case 9: return std::int64_t{1};
    default: return signedInteger(bytes);
  }
}

}  // namespace

std::optional<std::vector<DatabaseValue>> columnsOfRecord(std::span<const std::uint8_t> record) {
  auto rest = record;
  const auto headerBytes = takeVariableInteger(rest);
  const std::size_t taken = record.size() - rest.size();
  if (!headerBytes || *headerBytes < taken || *headerBytes > record.size()) return std::nullopt;
  auto types = record.subspan(taken, static_cast<std::size_t>(*headerBytes) - taken);
  auto body = record.subspan(static_cast<std::size_t>(*headerBytes));
  std::vector<DatabaseValue> columns;
  while (!types.empty()) {
    const auto type = takeVariableInteger(types);
    auto column = type ? takeColumn(*type, body) : std::nullopt;
    if (!column) return std::nullopt;
    columns.push_back(*column);
  }
  return columns;
}

void DatabaseCells::read(std::span<const std::uint8_t> page, bool isFirstPage,
                         const RowReceiver& row, const EntryReceiver& entry) {
  const std::size_t start = isFirstPage ? kFileHeaderBytes : 0;
  const std::uint8_t type = page[start];
  if (type != kTableLeaf && type != kIndexLeaf && type != kIndexInterior) return;
  const std::size_t pointers = start + (type == kIndexInterior ? 12 : 8);
  const std::size_t most = (page.size() - pointers) / 2;
  const std::size_t count = std::min<std::size_t>(bigEndian16(page.subspan(start + 3)), most);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t offset =
        bigEndian16(page.subspan(pointers + 2 * i)) + (type == kIndexInterior ? 4U : 0U);
    if (offset >= page.size()) continue;
    auto cell = page.subspan(offset);
    const auto size = takeVariableInteger(cell);
    const auto number =
        type == kTableLeaf ? takeVariableInteger(cell) : std::optional<std::uint64_t>(0);
    if (!size || !number) continue;
    const auto record = recordOf(cell, *size, type == kTableLeaf);
    if (record.empty()) continue;
    if (type == kTableLeaf) {
      row(static_cast<std::int64_t>(*number), record);
    } else {
      entry(record);
    }
  }
}

std::span<const std::uint8_t> DatabaseCells::recordOf(std::span<const std::uint8_t> cell,
                                                      std::uint64_t size, bool isTable) {
  constexpr std::uint64_t page = 4096;
  constexpr std::uint64_t least = (page - 12) * 32 / 255 - 23;
  const std::uint64_t most = isTable ? page - 35 : (page - 12) * 64 / 255 - 23;
  if (size <= most)
    return size <= cell.size() ? cell.first(static_cast<std::size_t>(size)) : cell.first(0);
  const std::uint64_t fitting = least + (size - least) % (page - 4);
  const std::uint64_t local = fitting <= most ? fitting : least;
  if (local + 4 > cell.size() || size > budget_) return {};
  gathered_.assign(cell.begin(), cell.begin() + static_cast<std::ptrdiff_t>(local));
  std::uint32_t next = bigEndian32(cell.subspan(static_cast<std::size_t>(local)));
  while (gathered_.size() < size) {
    const auto found = pages_(next);
    if (found.size() != page || budget_ < page) return {};
    budget_ -= page;
    const std::size_t count =
        std::min<std::size_t>(found.size() - 4, static_cast<std::size_t>(size) - gathered_.size());
    gathered_.insert(gathered_.end(), found.begin() + 4,
                     found.begin() + 4 + static_cast<std::ptrdiff_t>(count));
    next = bigEndian32(found);
  }
  return gathered_;
}

}  // namespace foundation
