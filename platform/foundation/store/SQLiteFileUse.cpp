// SPDX-License-Identifier: MIT
#include "store/SQLiteFileUse.hpp"

#include <mutex>

namespace foundation {

namespace {

struct Uses {
  std::mutex mutex;
  int count = 0;
};

// Has no destructor, because the destructors of other statics may close stores.
Uses& uses() {
  static constinit Uses shared;
  return shared;
}

}  // namespace

SQLiteFileUse::SQLiteFileUse() {
  const std::scoped_lock lock(uses().mutex);
  ++uses().count;
}

SQLiteFileUse::~SQLiteFileUse() {
  const std::scoped_lock lock(uses().mutex);
  --uses().count;
}

bool readWhileUnused(const std::function<void()>& read) {
  const std::scoped_lock lock(uses().mutex);
  if (uses().count > 0) return false;
  read();
  return true;
}

}  // namespace foundation
