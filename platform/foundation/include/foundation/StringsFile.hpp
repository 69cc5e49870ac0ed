// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace foundation {

using StringsTable = std::map<std::string, std::string, std::less<>>;

// The strings-file format: entries of a key, an equals sign, a value and a semicolon. A key alone
// stands for itself as its value. Comments run from // to the end of the line, or between /* and
// */.
//
//     /* the menu */
//     "Check for Updates\U2026" = "Nach Updates suchen\U2026";
//     title = Einstellungen;
//
// Keys and values are quoted, or bare when they consist of letters, digits and _ $ : . / - alone.
// Between quotes a backslash begins an escape: \n \t \r and the others of C, \" \\ \', three octal
// digits, and \U with the four hexadecimal digits of a UTF-16 unit. A later entry of the same key
// counts.
//
// The error says in which line the text goes wrong.
Result<StringsTable> parseStringsText(std::string_view utf8);

// The same for the bytes of a file: UTF-16 with a byte-order mark or without, or UTF-8.
Result<StringsTable> parseStringsFile(std::string_view bytes);
Result<StringsTable> readStringsFile(const std::filesystem::path& path);

}  // namespace foundation
