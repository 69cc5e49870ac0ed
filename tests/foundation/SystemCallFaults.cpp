#include "SystemCallFaults.hpp"

#include <dlfcn.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>

// The headers of these functions are left out: their declarations differ from library to library.
extern "C" [[noreturn]] void _exit(int code);

namespace {

SystemCallFault wanted = SystemCallFault::none;
long wantedNumber = 0;
long count = 0;
bool isCounting = false;

bool shallFail(int problem) {
  if (!isCounting || ++count != wantedNumber) return false;
  if (wanted == SystemCallFault::end) _exit(kEndedByFault);
  errno = problem;
  return wanted == SystemCallFault::fail;
}

template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

void beginSystemCallFault(SystemCallFault fault, long number) {
  wanted = fault;
  wantedNumber = number;
  count = 0;
  isCounting = true;
}

long endSystemCallFault() {
  isCounting = false;
  return count;
}

// A call with its parameters, and how it fails.
#define FAULTY_CALL(result, name, parameters, arguments, problem)         \
  extern "C" result name parameters {                                     \
    static auto* const next = original<result parameters>(#name);         \
    return shallFail(problem) ? static_cast<result>(-1) : next arguments; \
  }

#define FAULTY_OPEN(name)                                                  \
  extern "C" int name(const char* path, int flags, ...) {                  \
    static auto* const next = original<int(const char*, int, ...)>(#name); \
    std::va_list rest;                                                     \
    va_start(rest, flags);                                                 \
    const unsigned mode = va_arg(rest, unsigned);                          \
    va_end(rest);                                                          \
    return shallFail(ENOSPC) ? -1 : next(path, flags, mode);               \
  }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)
FAULTY_CALL(long, read, (int file, void* bytes, std::size_t size), (file, bytes, size), EIO)
FAULTY_CALL(long, pread64, (int file, void* bytes, std::size_t size, long offset),
            (file, bytes, size, offset), EIO)
FAULTY_CALL(long, write, (int file, const void* bytes, std::size_t size), (file, bytes, size),
            ENOSPC)
FAULTY_CALL(long, pwrite64, (int file, const void* bytes, std::size_t size, long offset),
            (file, bytes, size, offset), ENOSPC)
FAULTY_CALL(int, fsync, (int file), (file), EIO)
FAULTY_CALL(int, fdatasync, (int file), (file), EIO)
FAULTY_CALL(int, ftruncate, (int file, long size), (file, size), EIO)
FAULTY_CALL(int, ftruncate64, (int file, long size), (file, size), EIO)
FAULTY_CALL(int, rename, (const char* from, const char* to), (from, to), EIO)
FAULTY_CALL(int, renameat2, (int in, const char* from, int out, const char* to, unsigned flags),
            (in, from, out, to, flags), EINVAL)
FAULTY_CALL(int, link, (const char* from, const char* to), (from, to), EPERM)
FAULTY_CALL(int, unlink, (const char* path), (path), EIO)
FAULTY_CALL(int, chmod, (const char* path, unsigned mode), (path, mode), EIO)
FAULTY_CALL(int, fchmod, (int file, unsigned mode), (file, mode), EIO)
FAULTY_CALL(int, flock, (int file, int operation), (file, operation), EIO)
FAULTY_CALL(int, access, (const char* path, int mode), (path, mode), EIO)
FAULTY_CALL(int, lstat, (const char* path, void* found), (path, found), EIO)
FAULTY_CALL(int, lstat64, (const char* path, void* found), (path, found), EIO)
FAULTY_CALL(int, stat64, (const char* path, void* found), (path, found), EIO)
FAULTY_CALL(int, fstat64, (int file, void* found), (file, found), EIO)

extern "C" int fcntl64(int file, int command, ...) {
  static auto* const next = original<int(int, int, ...)>("fcntl64");
  std::va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  return shallFail(EIO) ? -1 : next(file, command, argument);
}
