// SPDX-License-Identifier: MIT
#include "store/recovery/DatabaseLog.hpp"

#include "store/recovery/DatabaseBytes.hpp"

#include <algorithm>
#include <map>
#include <utility>

namespace foundation {

namespace {

constexpr std::size_t kHeaderBytes = 32;
constexpr std::size_t kFrameHeaderBytes = 24;
constexpr std::size_t kFrameBytes = kFrameHeaderBytes + kDatabasePageBytes;
constexpr std::uint32_t kMagic = 0x377F0682;  // one more when the checksums are of big-endian words

// The checksum of the log, which continues from frame to frame.
class RunningSum {
public:
  explicit RunningSum(bool isBigEndian) : isBigEndian_(isBigEndian) {}
  void add(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i + 8 <= bytes.size(); i += 8) {
      first_ += word(bytes.subspan(i)) + second_;
      second_ += word(bytes.subspan(i + 4)) + first_;
    }
  }
  bool isAt(std::span<const std::uint8_t> bytes) const {
    return bigEndian32(bytes) == first_ && bigEndian32(bytes.subspan(4)) == second_;
  }

private:
  std::uint32_t word(std::span<const std::uint8_t> bytes) const {
    const std::uint32_t big = bigEndian32(bytes);
    return isBigEndian_ ? big : __builtin_bswap32(big);
  }

  bool isBigEndian_;
  std::uint32_t first_ = 0;
  std::uint32_t second_ = 0;
};

}  // namespace

DatabaseLog::DatabaseLog(FileBytes bytes) : bytes_(std::move(bytes)) {
  const std::span all(bytes_);
  if (all.size() < kHeaderBytes) return;
  RunningSum sum((bigEndian32(all) & 1) != 0);
  sum.add(all.first(24));
  isHeaderRight_ = (bigEndian32(all) & ~1U) == kMagic &&
                   bigEndian32(all.subspan(8)) == kDatabasePageBytes && sum.isAt(all.subspan(24));
  salts_ = bigEndian64(all.subspan(16));
  bool isChainRight = isHeaderRight_;
  for (std::size_t start = kHeaderBytes; start + kFrameBytes <= all.size(); start += kFrameBytes) {
    const auto header = all.subspan(start, kFrameHeaderBytes);
    frames_.push_back({.page = bigEndian32(header),
                       .endsTransaction = bigEndian32(header.subspan(4)) != 0,
                       .salts = bigEndian64(header.subspan(8)),
                       .offset = start + kFrameHeaderBytes});
    if (!isChainRight) continue;
    sum.add(header.first(8));
    sum.add(page(frames_.back()));
    isChainRight =
        frames_.back().salts == salts_ && frames_.back().page != 0 && sum.isAt(header.subspan(16));
    if (isChainRight && frames_.back().endsTransaction) acceptedCount_ = frames_.size();
    if (!isChainRight) isBroken_ = !isLeftFromBefore(frames_.back().salts);
  }
}

// SQLite restarts the log without truncating it, so that older frames may follow the new ones. The
// first half of the salts counts the restarts.
bool DatabaseLog::isLeftFromBefore(std::uint64_t salts) const {
  constexpr std::uint32_t mostTimes = 1'000'000;
  const auto age =
      static_cast<std::uint32_t>(salts_ >> 32) - static_cast<std::uint32_t>(salts >> 32);
  return age > 0 && age < mostTimes;
}

std::size_t DatabaseLog::acceptedBytes() const {
  return isHeaderRight_ ? kHeaderBytes + acceptedCount_ * kFrameBytes : 0;
}

std::vector<LogFrame> DatabaseLog::committed() const {
  std::map<std::uint64_t, std::size_t> ends;  // of the last transaction with these salts
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    if (frames_[i].endsTransaction) ends[frames_[i].salts] = i + 1;
  }
  std::vector<LogFrame> committed;
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    const auto end = ends.find(frames_[i].salts);
    // The salts of the frame may be damaged.
    const std::size_t limit = end != ends.end() ? end->second : ends[salts_];
    if (i < limit) committed.push_back(frames_[i]);
  }
  return committed;
}

bool DatabaseLog::hasLostTransactions() const {
  return isBroken_ ||
         std::any_of(frames_.begin() + static_cast<std::ptrdiff_t>(acceptedCount_), frames_.end(),
                     [&](const LogFrame& frame) {
                       return frame.endsTransaction && (!isHeaderRight_ || frame.salts == salts_);
                     });
}

bool DatabaseLog::continues(const DatabaseLog& other) const {
  const std::size_t common = std::min(kHeaderBytes, other.bytes_.size());
  return bytes_.size() >= common &&
         std::equal(other.bytes_.begin(),
                    other.bytes_.begin() + static_cast<std::ptrdiff_t>(common), bytes_.begin()) &&
         (other.isEmpty() == isEmpty());
}

}  // namespace foundation
