// SPDX-License-Identifier: MIT
#pragma once

#include "store/recovery/RawDatabaseFile.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace foundation {

inline constexpr std::size_t kDatabasePageBytes = 4096;

// One page in a log.
struct LogFrame {
  std::uint32_t page = 0;
  bool endsTransaction = false;
  std::uint64_t salts = 0;  // the same in all frames since the log was begun anew
  std::size_t offset = 0;   // of the page's bytes in the log
};

// A database's write-ahead log, read without SQLite.
class DatabaseLog {
public:
  explicit DatabaseLog(FileBytes bytes);

  // The frames that SQLite accepts: up to the end of the last transaction before the first wrong
  // checksum.
  std::span<const LogFrame> accepted() const { return std::span(frames_).first(acceptedCount_); }
  std::size_t acceptedBytes() const;

  // All frames that belong to a transaction that was committed at some time, whether SQLite accepts
  // them or not.
  std::vector<LogFrame> committed() const;

  // Whether a frame is not as it was written, or a committed transaction follows the accepted ones.
  // A writer that is killed leaves neither.
  bool hasLostTransactions() const;

  std::span<const std::uint8_t> page(const LogFrame& frame) const {
    return std::span(bytes_).subspan(frame.offset, kDatabasePageBytes);
  }
  bool isEmpty() const { return bytes_.empty(); }
  // Whether both were begun by the same write, so that one continues the other.
  bool continues(const DatabaseLog& other) const;

private:
  bool isLeftFromBefore(std::uint64_t salts) const;

  FileBytes bytes_;
  std::vector<LogFrame> frames_;
  std::size_t acceptedCount_ = 0;
  bool isHeaderRight_ = false;
  bool isBroken_ = false;  // a whole frame of this log has a wrong checksum
  std::uint64_t salts_ = 0;
};

}  // namespace foundation
