// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/uversion.h>

// The common library of ICU, which is loaded when it is first used. Loading it takes longer than
// all that a command of the shell does, and most programs never need it.

namespace foundation {

// The address of a symbol; null when the library or the symbol is missing.
void* icuSymbol(const char* name);

// The file of the library.
const char* icuLibraryName();

// ICU's names bear its version: "ucasemap_open_72".
#define QEV_TEXT_OF(name) #name
#define QEV_SYMBOL(name) QEV_TEXT_OF(name)
#define QEV_ICU(function) \
  reinterpret_cast<decltype(&(function))>(::foundation::icuSymbol(QEV_SYMBOL(function)))

}  // namespace foundation
