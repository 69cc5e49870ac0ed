// SPDX-License-Identifier: MIT
#include "window/FontReadAhead.hpp"

#include "foundation/Thread.hpp"

#include <dlfcn.h>

namespace qt {

namespace {

// Fontconfig's own entry. Qt's library links it, so it is loaded already.
using Initialize = int (*)();

}  // namespace

FontReadAhead::FontReadAhead() {
  const auto initialize = reinterpret_cast<Initialize>(::dlsym(RTLD_DEFAULT, "FcInit"));
  if (initialize == nullptr) return;
  thread_ = foundation::startThreadWithoutSignals([initialize] { initialize(); });
}

FontReadAhead::~FontReadAhead() {
  if (thread_) thread_->join();
}

}  // namespace qt
