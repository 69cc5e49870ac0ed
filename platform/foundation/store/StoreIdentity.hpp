#pragma once

#include "foundation/Result.hpp"
#include "store/recovery/RawDatabaseFile.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace foundation {

// What stands under a name.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  bool operator==(const FileIdentity&) const = default;

  // The default value for a name that does not exist; nothing when the system refuses to look.
  static std::optional<FileIdentity> of(const std::filesystem::path& path);
};

// The file, the log, its index and the folder that a store was opened with, and whether they are
// still there. A look costs one system call unless something came into the folder or left it since
// the look before.
class StoreIdentity {
public:
  void remember(const std::filesystem::path& store);
  bool isReplaced(const std::filesystem::path& store);
  // Whether the log is still there, but not the file. Only a certain answer is true: the log is
  // removed then.
  bool hasLeftItsLog(const std::filesystem::path& store) const;
  bool isFolderReplaced(const std::filesystem::path& store) const;

private:
  std::optional<FileIdentity> folder_;
  std::optional<FileIdentity> file_;
  std::optional<FileIdentity> log_;
  std::optional<FileIdentity> index_;
  std::int64_t folderChanged_ = 0;  // in nanoseconds since 1970
  bool isSettled_ = false;
};

// What kind of file stands at a store's path.
enum class StoreKind {
  missing,
  empty,    // of length zero
  sound,    // marked as a store of ours
  damaged,  // a store of ours, as its mark or its good copy says, whose first bytes are not as we
            // write them
  foreign,  // anything else, which is left alone
};

// Whether the first bytes of a file are those of a store, in all that does not depend on what it
// holds.
bool isHeaderOfStore(const FileBytes& header);

// Reads the first bytes of the file, and more only to tell a damaged store from another program's
// database. Changes nothing. Fails for what no store may be: a link, a folder, a pipe, another
// user's file, here or next to the file.
Result<StoreKind> kindOfStore(const std::filesystem::path& store);

// What a file is that is no store of ours: "a text file".
std::string descriptionOfForeignFile(const std::filesystem::path& path);

}  // namespace foundation
