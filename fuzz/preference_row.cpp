// SPDX-License-Identifier: MIT
#include "foundation/PreferenceCoding.hpp"
#include "platform/foundation/store/PreferenceCell.hpp"

#include <sqlite3.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

using foundation::PreferenceCell;
using QEVSettings::PreferenceValue;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// A query in memory that returns the type and the value that are bound to it.
class Row {
public:
  Row() {
    require(sqlite3_open(":memory:", &database_) == SQLITE_OK);
    require(sqlite3_prepare_v2(database_, "SELECT ?1, ?2", -1, &statement_, nullptr) == SQLITE_OK);
  }
  Row(const Row&) = delete;
  Row& operator=(const Row&) = delete;
  ~Row() {
    sqlite3_finalize(statement_);
    sqlite3_close(database_);
  }

  sqlite3_stmt* begin() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    return statement_;
  }
  PreferenceCell cell() {
    require(sqlite3_step(statement_) == SQLITE_ROW);
    return PreferenceCell::ofColumns(statement_, 0, 1);
  }

private:
  sqlite3* database_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

// Binds one column as any of the five types of the database.
void bindParameter(sqlite3_stmt* statement, int parameter, unsigned type, std::string_view bytes) {
  std::int64_t integer = 0;
  double real = 0;
  std::memcpy(&integer, bytes.data(), bytes.size() < 8 ? bytes.size() : 8);
  std::memcpy(&real, &integer, 8);
  const auto length = static_cast<int>(bytes.size());
  switch (type % 5) {
    case 0: sqlite3_bind_int64(statement, parameter, integer); break;
    case 1: sqlite3_bind_double(statement, parameter, real); break;
    case 2: sqlite3_bind_text(statement, parameter, bytes.data(), length, SQLITE_STATIC); break;
    case 3: sqlite3_bind_blob(statement, parameter, bytes.data(), length, SQLITE_STATIC); break;
    default: break;
  }
}

bool isNotANumber(const PreferenceValue& value) {
  if (const auto real = value.asReal()) return std::isnan(*real);
  const auto date = value.asDate();
  return date && std::isnan(date->time_since_epoch().count());
}

}  // namespace

// Any row is read without harm. If it has a value, storing and reading the value gives the same
// one. The bytes are compared, because not-a-number does not equal itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  static Row row;
  static Row other;
  const std::string_view contents(reinterpret_cast<const char*>(data) + 3, size - 3);
  sqlite3_stmt* const statement = row.begin();
  const char type = static_cast<char>(data[0]);
  bindParameter(statement, 1, data[1], {&type, 1});
  bindParameter(statement, 2, data[2], contents);
  const PreferenceCell cell = row.cell();
  static_cast<void>(cell.sum("key"));
  const auto value = cell.value();
  // A row does not keep which not-a-number it was.
  if (!value || isNotANumber(*value)) return 0;

  const auto again = PreferenceCell::ofValue(value);
  require(again.has_value());
  again->bind(other.begin(), 1, 2);
  const PreferenceCell stored = other.cell();
  require(stored.sum("key") == again->sum("key"));
  const auto read = stored.value();
  require(read && foundation::encodedPreference(*read) == foundation::encodedPreference(*value));
  return 0;
}
