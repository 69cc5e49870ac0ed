// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "store/recovery/RawDatabaseFile.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace foundation {

// The identity of the file at a path.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  bool operator==(const FileIdentity&) const = default;

  // The default value when no file has the name; nothing when the system refuses to look.
  static std::optional<FileIdentity> of(const std::string& path);
};

// The folder of a store, empty for a path that names none. The parent_path of std::filesystem
// splits the whole path, and an opening asks several times.
std::string folderOf(const std::filesystem::path& store);

// Remembers the file, the log, its index and the folder of an open store, and checks whether they
// are still at their paths. A check costs one system call, and more when the folder changed since
// the last one.
class StoreIdentity {
public:
  void remember(const std::filesystem::path& store);
  bool isReplaced(const std::filesystem::path& store);
  // Whether the log is still at its path, but the file is not. The caller removes the log then, so
  // that the answer is false unless it is certain.
  bool hasLeftItsLog(const std::filesystem::path& store) const;
  bool isFolderReplaced() const;

private:
  std::string folderPath_;
  std::optional<FileIdentity> folder_;
  std::optional<FileIdentity> file_;
  std::optional<FileIdentity> log_;
  std::optional<FileIdentity> index_;
  std::int64_t folderChanged_ = 0;  // in nanoseconds since 1970
  bool isSettled_ = false;
};

// The kind of the file at a store's path.
enum class StoreKind {
  missing,
  empty,    // of length zero
  sound,    // marked as a store of ours
  damaged,  // a store of ours, as its mark or its good copy says, whose first bytes are not as we
            // write them
  foreign,  // anything else, which is left alone
};

// Whether these are the first bytes of a store, as far as they do not depend on its contents.
bool isHeaderOfStore(const FileBytes& header);

// Reads the first bytes of the file, and the rest only to tell a damaged store from another
// program's database. Changes nothing. Fails when a link, a folder, a pipe or another user's file
// is at the path of the store, of its log or of its index, and when the system refuses to look.
Result<StoreKind> kindOfStore(const std::filesystem::path& store);

// Describes a file that is not a store: "a text file".
std::string descriptionOfForeignFile(const std::filesystem::path& path);

}  // namespace foundation
