// SPDX-License-Identifier: MIT
#include "store/StoreIdentity.hpp"

#include "store/PreferencesTable.hpp"
#include "store/recovery/DatabaseBytes.hpp"
#include "store/recovery/GoodCopy.hpp"
#include "store/recovery/PreferencesSalvage.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <string_view>
#include <system_error>

namespace foundation {

namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr std::size_t kHeaderBytes = 100;

bool hasMagic(const FileBytes& header) {
  return header.size() >= kHeaderBytes && std::equal(kMagic.begin(), kMagic.end(), header.begin());
}

bool hasMark(const FileBytes& header) {
  return hasMagic(header) && bigEndian32(std::span(header).subspan(kApplicationIdOffset)) ==
                                 static_cast<std::uint32_t>(kApplicationId);
}

// What all headers of our stores have in common.
bool isAsWritten(const FileBytes& header) {
  const std::span bytes(header);
  const bool isLogged = bytes[18] == 2 && bytes[19] == 2;
  const bool isJournaled = bytes[18] == 1 && bytes[19] == 1;
  return bigEndian16(bytes.subspan(16)) == kDatabasePageBytes && (isLogged || isJournaled) &&
         bytes[20] == 0 && bytes[21] == 64 && bytes[22] == 32 && bytes[23] == 32 &&
         bigEndian32(bytes.subspan(44)) == 4 && bigEndian32(bytes.subspan(52)) == 0 &&
         bigEndian32(bytes.subspan(56)) == 1 && bigEndian32(bytes.subspan(64)) == 0;
}

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// The size of the file, or nothing when it is missing. Refuses what neither a store nor a file next
// to it may be.
Result<std::optional<off_t>> sizeUnlessRefused(const std::string& path) {
  struct stat found {};
  if (::lstat(path.c_str(), &found) != 0) {
    if (errno == ENOENT) return std::optional<off_t>();
    return Error{"cannot read " + path + " (" + std::generic_category().message(errno) +
                 "); check its name and its permissions"};
  }
  if (found.st_uid != ::geteuid()) {
    return Error{path +
                 " belongs to another user; choose a file of your own in a folder of your own"};
  }
  if (S_ISLNK(found.st_mode))
    return Error{path + " is a symbolic link; choose the file that it leads to"};
  if (S_ISDIR(found.st_mode)) return Error{path + " is a folder; choose a file"};
  if (!S_ISREG(found.st_mode)) return Error{path + " is no regular file; choose another"};
  return std::optional(found.st_size);
}

}  // namespace

std::string folderOf(const std::filesystem::path& store) {
  const std::string& path = store.native();
  const std::size_t end = path.rfind('/');
  if (end == std::string::npos) return {};
  return path.substr(0, std::max<std::size_t>(end, 1));
}

bool isHeaderOfStore(const FileBytes& header) { return hasMark(header) && isAsWritten(header); }

std::optional<FileIdentity> FileIdentity::of(const std::string& path) {
  struct stat found {};
  if (::lstat(path.c_str(), &found) == 0)
    return FileIdentity{.device = found.st_dev, .node = found.st_ino};
  return errno == ENOENT ? std::optional(FileIdentity()) : std::nullopt;
}

void StoreIdentity::remember(const std::filesystem::path& store) {
  folderPath_ = folderOf(store);
  folder_ = FileIdentity::of(folderPath_);
  file_ = FileIdentity::of(store.native());
  log_ = FileIdentity::of(store.native() + "-wal");
  index_ = FileIdentity::of(store.native() + "-shm");
  isSettled_ = false;
}

bool StoreIdentity::isReplaced(const std::filesystem::path& store) {
  struct stat found {};
  if (::lstat(folderPath_.c_str(), &found) != 0) return errno == ENOENT;
  const bool isSameFolder = FileIdentity{.device = found.st_dev, .node = found.st_ino} == folder_;
  const std::int64_t changed = nanoseconds(found.st_mtim);
  const bool isSameTime = changed == folderChanged_;
  if (isSameFolder && isSettled_ && isSameTime) return false;
  if (!isSameFolder || FileIdentity::of(store.native()) != file_ ||
      FileIdentity::of(store.native() + "-wal") != log_ ||
      FileIdentity::of(store.native() + "-shm") != index_) {
    return true;
  }
  // Two changes of the folder within the resolution of its time look like one. Some file systems
  // keep whole or even seconds.
  constexpr std::int64_t fineTime = 50'000'000;
  constexpr std::int64_t coarseTime = 3'000'000'000;
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  isSettled_ = nanoseconds(now) - changed > (found.st_mtim.tv_nsec != 0 ? fineTime : coarseTime);
  folderChanged_ = changed;
  return false;
}

bool StoreIdentity::hasLeftItsLog(const std::filesystem::path& store) const {
  if (!file_ || !log_ || log_ == FileIdentity()) return false;
  const auto file = FileIdentity::of(store.native());
  return file && file != file_ && FileIdentity::of(store.native() + "-wal") == log_;
}

bool StoreIdentity::isFolderReplaced() const {
  const auto folder = FileIdentity::of(folderPath_);
  return folder && folder != folder_;
}

Result<StoreKind> kindOfStore(const std::filesystem::path& store) {
  const auto size = sizeUnlessRefused(store.native());
  if (!size) return size.error();
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    if (auto other = sizeUnlessRefused(store.native() + ending); !other) return other.error();
  }
  if (!*size) return StoreKind::missing;
  if (**size == 0) return StoreKind::empty;
  const auto header = readRawDatabaseFile(store, kHeaderBytes);
  if (!header) {
    return Error{"cannot read " + store.string() +
                 " (no permission); allow access to it and to its folder, or choose another file"};
  }
  if (hasMark(*header)) return isAsWritten(*header) ? StoreKind::sound : StoreKind::damaged;
  const auto copy = readRawDatabaseFileIfThere(goodCopyOf(store), kHeaderBytes);
  if (!copy) return copy.error();
  if (!hasMark(*copy)) return StoreKind::foreign;
  if (!hasMagic(*header)) return StoreKind::damaged;
  // Another program's database is not a damaged store, unless rows of ours are in it.
  PreferencesSalvage salvage;
  const bool hasRows = salvage.addFile(store);
  if (!hasRows && salvage.problem()) return *salvage.problem();
  return hasRows ? StoreKind::damaged : StoreKind::foreign;
}

std::string descriptionOfForeignFile(const std::filesystem::path& path) {
  constexpr std::size_t looked = 4096;
  const auto start = readRawDatabaseFile(path, looked);
  if (!start) return "a file of another program";
  if (hasMagic(*start)) return "a database of another program";
  const bool isText = std::all_of(start->begin(), start->end(), [](std::uint8_t byte) {
    return byte >= 0x20 || (byte >= 0x07 && byte <= 0x0D);
  });
  return isText ? "a text file" : "a file of another program";
}

}  // namespace foundation
