#include "PreferencesCompanions.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace foundation {

std::optional<Error> companionProblem(const std::filesystem::path& store) {
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    const std::string path = store.string() + ending;
    struct stat found {};
    if (::lstat(path.c_str(), &found) != 0) continue;
    if (!S_ISREG(found.st_mode)) return Error{path + " is no regular file; move it away"};
    if (found.st_uid != ::geteuid()) return Error{path + " belongs to another user; choose a file elsewhere"};
  }
  return std::nullopt;
}

}  // namespace foundation
