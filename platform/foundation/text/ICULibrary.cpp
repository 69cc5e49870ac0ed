// SPDX-License-Identifier: MIT
#include "text/ICULibrary.hpp"

#include <dlfcn.h>

namespace foundation {

const char* icuLibraryName() { return "libicuuc.so." U_ICU_VERSION_SHORT; }

void* icuSymbol(const char* name) {
  static void* const library = ::dlopen(icuLibraryName(), RTLD_NOW | RTLD_LOCAL);
  return library != nullptr ? ::dlsym(library, name) : nullptr;
}

}  // namespace foundation
