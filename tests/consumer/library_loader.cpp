// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

// Loads the library that the command line names, and has it print its text.
int main(int argc, char** argv) {
  void* const library = argc == 2 ? ::dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
  auto* const print =
      library ? reinterpret_cast<void (*)()>(::dlsym(library, "printText")) : nullptr;
  if (!print) {
    std::fprintf(stderr, "the library cannot be loaded: %s\n", ::dlerror());
    return EXIT_FAILURE;
  }
  print();
  return EXIT_SUCCESS;
}
