// SPDX-License-Identifier: MIT
#include "foundation/Files.hpp"

#include "system/FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace foundation {

namespace {

Error failure(const char* what, const std::filesystem::path& path, int reason) {
  return {std::string("cannot ") + what + " " + path.string() + " (" +
          std::generic_category().message(reason) + "); check its name and its permissions"};
}

bool writeAll(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = ::write(descriptor, contents.data(), contents.size());
    if (written < 0 && errno != EINTR) return false;
    contents.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
  }
  return ::fsync(descriptor) == 0;
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& path, std::size_t maximumBytes) {
  // Opening a pipe must not wait for its other end.
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat found {};
  if (!file || ::fstat(file.get(), &found) != 0) return failure("read", path, errno);
  if (!S_ISREG(found.st_mode)) return Error{path.string() + " is no regular file; choose another"};
  std::string contents;
  while (true) {
    // The size is only a hint: a file may grow while it is read, and files of /proc say they are
    // empty.
    const std::size_t had = contents.size();
    if (had > maximumBytes || static_cast<std::uint64_t>(found.st_size) > maximumBytes) {
      return Error{path.string() + " is larger than " + std::to_string(maximumBytes >> 20) +
                   " MB; choose a smaller file"};
    }
    contents.resize(std::max(had + 4096, static_cast<std::size_t>(found.st_size) + 1));
    const ssize_t count = ::read(file.get(), contents.data() + had, contents.size() - had);
    contents.resize(had + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return contents;
    if (count < 0 && errno != EINTR) return failure("read", path, errno);
  }
}

Outcome writeFile(const std::filesystem::path& path, std::string_view contents) {
  struct stat old {};
  const bool isReplacing = ::lstat(path.c_str(), &old) == 0;
  if (isReplacing && !S_ISREG(old.st_mode))
    return Error{path.string() + " is no regular file; choose another"};
  std::string temporary = path.string() + ".XXXXXX";
  const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!file) return failure("write", path, errno);
  if (isReplacing) ::fchmod(file.get(), old.st_mode & 07777);
  if (!writeAll(file.get(), contents) || ::rename(temporary.c_str(), path.c_str()) != 0) {
    const int reason = errno;
    ::unlink(temporary.c_str());
    return failure("write", path, reason);
  }
  const auto parent = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
  if (const FileDescriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      folder) {
    ::fsync(folder.get());
  }
  return done();
}

}  // namespace foundation
