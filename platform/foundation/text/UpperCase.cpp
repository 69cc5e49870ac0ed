// SPDX-License-Identifier: MIT
#include "foundation/Diagnostics.hpp"
#include "foundation/Unicode.hpp"
#include "text/ICULibrary.hpp"

#include <unicode/ucasemap.h>

#include <algorithm>
#include <cstdint>

namespace foundation {

namespace {

class CaseMapping {
public:
  CaseMapping() : toUpper_(QEV_ICU(ucasemap_utf8ToUpper)) {
    const auto open = QEV_ICU(ucasemap_open);
    if (open == nullptr || toUpper_ == nullptr) return;
    constexpr const char* everyLanguage = "";
    UErrorCode error = U_ZERO_ERROR;
    mapping_ = open(everyLanguage, 0, &error);
  }

  bool isUsable() const { return mapping_ != nullptr; }

  std::optional<std::string> uppercased(std::string_view text) const {
    // No character grows beyond three times its length.
    std::string uppercase(3 * text.size(), '\0');
    UErrorCode error = U_ZERO_ERROR;
    const auto length =
        toUpper_(mapping_, uppercase.data(), static_cast<std::int32_t>(uppercase.size()),
                 text.data(), static_cast<std::int32_t>(text.size()), &error);
    if (U_FAILURE(error)) return std::nullopt;
    uppercase.resize(static_cast<std::size_t>(length));
    return uppercase;
  }

private:
  // Stays for the life of the process, as the library does.
  UCaseMap* mapping_ = nullptr;
  decltype(&ucasemap_utf8ToUpper) toUpper_;
};

const CaseMapping& caseMapping() {
  static const CaseMapping mapping = [] {
    CaseMapping made;
    if (!made.isUsable()) {
      reportDiagnostic(std::string("text: no capitals beyond ASCII, because the library ") +
                       icuLibraryName() + " cannot be used; install ICU");
    }
    return made;
  }();
  return mapping;
}

}  // namespace

std::string uppercased(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<std::uint8_t>(c) < 0x80; };
  if (!std::ranges::all_of(text, isAscii) && caseMapping().isUsable()) {
    return caseMapping().uppercased(text).value_or(std::string(text));
  }
  std::string uppercase(text);
  for (char& c : uppercase) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return uppercase;
}

}  // namespace foundation
