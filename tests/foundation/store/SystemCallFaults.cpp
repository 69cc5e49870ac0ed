// SPDX-License-Identifier: MIT
#include "SystemCallFaults.hpp"

#include <dlfcn.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <string>
#include <utility>

// The headers of these functions are left out: their declarations differ from library to library.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" [[noreturn]] void _exit(int code);
extern "C" long readlink(const char* path, char* target, std::size_t size);

namespace {

SystemCallFault wanted = SystemCallFault::none;
long wantedNumber = 0;
SystemCalls counted;
long count = 0;
bool isCounting = false;

bool hasNoLinks = false;
bool hasNoConditionalRenames = false;
std::function<void()> beforeFirstLink;

enum class Call { read, change };

std::string nameOf(const char* path) { return path; }
std::string nameOf(int file) {
  std::array<char, 4096> target{};
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const long size = ::readlink(link.c_str(), target.data(), target.size());
  return {target.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

template <class File>
bool shallFail(Call call, File file, int problem) {
  if (!isCounting || (counted.readsAlone && call != Call::read)) return false;
  if (!counted.ending.empty() && !nameOf(file).ends_with(counted.ending)) return false;
  if (++count != wantedNumber) return false;
  if (wanted == SystemCallFault::end) _exit(kEndedByFault);
  errno = problem;
  return wanted == SystemCallFault::fail;
}

bool failsForLackOfLinks(bool isLacking, int problem) {
  if (!isLacking) return false;
  if (const auto another = std::exchange(beforeFirstLink, nullptr)) {
    hasNoLinks = false;
    another();
    hasNoLinks = true;
  }
  errno = problem;
  return true;
}

template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

void beginSystemCallFault(SystemCallFault fault, long number, const SystemCalls& calls) {
  wanted = fault;
  wantedNumber = number;
  counted = calls;
  count = 0;
  isCounting = true;
}

long endSystemCallFault() {
  isCounting = false;
  return count;
}

void removeHardLinks(bool alsoRenames, std::function<void()> another) {
  hasNoLinks = true;
  hasNoConditionalRenames = alsoRenames;
  beforeFirstLink = std::move(another);
}

// A call with its parameters, the file that it is made on, and how it fails.
#define FAULTY_CALL(kind, result, name, parameters, arguments, file, problem)               \
  extern "C" result name parameters {                                                       \
    static auto* const next = original<result parameters>(#name);                           \
    return shallFail(Call::kind, file, problem) ? static_cast<result>(-1) : next arguments; \
  }

#define FAULTY_OPEN(name)                                                      \
  extern "C" int name(const char* path, int flags, ...) {                      \
    static auto* const next = original<int(const char*, int, ...)>(#name);     \
    std::va_list rest;                                                         \
    va_start(rest, flags);                                                     \
    const unsigned mode = va_arg(rest, unsigned);                              \
    va_end(rest);                                                              \
    return shallFail(Call::read, path, ENOSPC) ? -1 : next(path, flags, mode); \
  }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)
FAULTY_CALL(read, long, read, (int file, void* bytes, std::size_t size), (file, bytes, size), file,
            EIO)
FAULTY_CALL(read, long, pread64, (int file, void* bytes, std::size_t size, long offset),
            (file, bytes, size, offset), file, EIO)
FAULTY_CALL(change, long, write, (int file, const void* bytes, std::size_t size),
            (file, bytes, size), file, ENOSPC)
FAULTY_CALL(change, long, pwrite64, (int file, const void* bytes, std::size_t size, long offset),
            (file, bytes, size, offset), file, ENOSPC)
FAULTY_CALL(change, int, fsync, (int file), (file), file, EIO)
FAULTY_CALL(change, int, fdatasync, (int file), (file), file, EIO)
FAULTY_CALL(change, int, ftruncate, (int file, long size), (file, size), file, EIO)
FAULTY_CALL(change, int, ftruncate64, (int file, long size), (file, size), file, EIO)
FAULTY_CALL(change, int, rename, (const char* from, const char* to), (from, to), from, EIO)
FAULTY_CALL(change, int, unlink, (const char* path), (path), path, EIO)
FAULTY_CALL(change, int, chmod, (const char* path, unsigned mode), (path, mode), path, EIO)
FAULTY_CALL(change, int, fchmod, (int file, unsigned mode), (file, mode), file, EIO)
FAULTY_CALL(change, int, flock, (int file, int operation), (file, operation), file, EIO)
FAULTY_CALL(read, int, access, (const char* path, int mode), (path, mode), path, EIO)
FAULTY_CALL(read, int, lstat, (const char* path, void* found), (path, found), path, EIO)
FAULTY_CALL(read, int, lstat64, (const char* path, void* found), (path, found), path, EIO)
FAULTY_CALL(read, int, stat64, (const char* path, void* found), (path, found), path, EIO)
FAULTY_CALL(read, int, fstat64, (int file, void* found), (file, found), file, EIO)

extern "C" int link(const char* from, const char* to) {
  static auto* const next = original<int(const char*, const char*)>("link");
  if (failsForLackOfLinks(hasNoLinks, EPERM)) return -1;
  return shallFail(Call::change, from, EPERM) ? -1 : next(from, to);
}

extern "C" int renameat2(int in, const char* from, int out, const char* to, unsigned flags) {
  static auto* const next =
      original<int(int, const char*, int, const char*, unsigned)>("renameat2");
  if (failsForLackOfLinks(hasNoConditionalRenames, EINVAL)) return -1;
  return shallFail(Call::change, from, EINVAL) ? -1 : next(in, from, out, to, flags);
}

// A lock that the process cannot release would be waited for by its own next transactions, and a
// system does not refuse that.
extern "C" int fcntl64(int file, int command, ...) {
  constexpr int setLock = 6;
  constexpr short unlock = 2;
  static auto* const next = original<int(int, int, ...)>("fcntl64");
  std::va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  const bool releases = command == setLock && *static_cast<const short*>(argument) == unlock;
  return !releases && shallFail(Call::change, file, EIO) ? -1 : next(file, command, argument);
}
