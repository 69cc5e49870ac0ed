// SPDX-License-Identifier: MIT
#include "foundation/Diagnostics.hpp"
#include "foundation/Unicode.hpp"
#include "text/ICULibrary.hpp"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cstdint>

namespace foundation {

namespace {

std::int32_t lengthOf(const auto& text) { return static_cast<std::int32_t>(text.size()); }

// The functions of ICU that texts beyond ASCII need.
class Folding {
public:
  Folding() {
    UErrorCode error = U_ZERO_ERROR;
    const auto instance = QEV_ICU(unorm2_getNFKDInstance);
    if (instance != nullptr) decomposition_ = instance(&error);
  }

  bool isUsable() const {
    return decomposition_ && normalize_ && fold_ && fromUtf8_ && toUtf8_ && typeOf_;
  }

  std::string folded(std::string_view text) const {
    return utf8Of(withoutMarks(decomposed(caseFolded(decomposed(utf16Of(text))))));
  }

private:
  // Calls a function of ICU that fills a buffer, again with a larger one where it does not fit.
  static std::u16string filled(std::size_t capacity, const auto& fill) {
    std::u16string buffer(capacity, u'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
      UErrorCode error = U_ZERO_ERROR;
      const std::int32_t length = fill(buffer.data(), lengthOf(buffer), &error);
      buffer.resize(static_cast<std::size_t>(std::max(length, 0)));
      if (error != U_BUFFER_OVERFLOW_ERROR) return U_SUCCESS(error) ? buffer : std::u16string();
    }
    return {};
  }

  std::u16string utf16Of(std::string_view text) const {
    return filled(text.size() + 1, [&](UChar* into, std::int32_t capacity, UErrorCode* error) {
      std::int32_t length = 0;
      fromUtf8_(into, capacity, &length, text.data(), lengthOf(text), error);
      return length;
    });
  }

  std::u16string decomposed(const std::u16string& text) const {
    return filled(2 * text.size() + 8, [&](UChar* into, std::int32_t capacity, UErrorCode* error) {
      return normalize_(decomposition_, text.data(), lengthOf(text), into, capacity, error);
    });
  }

  std::u16string caseFolded(const std::u16string& text) const {
    return filled(text.size() + 8, [&](UChar* into, std::int32_t capacity, UErrorCode* error) {
      return fold_(into, capacity, text.data(), lengthOf(text), U_FOLD_CASE_DEFAULT, error);
    });
  }

  // Accents are marks that do not space. The sound marks of Japanese make another letter.
  std::u16string withoutMarks(const std::u16string& text) const {
    constexpr UChar32 voiced = 0x3099;
    constexpr UChar32 halfVoiced = 0x309A;
    std::u16string kept;
    for (std::int32_t i = 0; i < lengthOf(text);) {
      const std::int32_t start = i;
      UChar32 character = 0;
      U16_NEXT(text.data(), i, lengthOf(text), character);
      const bool isSoundMark = character == voiced || character == halfVoiced;
      if (typeOf_(character) != U_NON_SPACING_MARK || isSoundMark)
        kept.append(text, static_cast<std::size_t>(start), static_cast<std::size_t>(i - start));
    }
    return kept;
  }

  std::string utf8Of(const std::u16string& text) const {
    std::string utf8(3 * text.size(), '\0');
    UErrorCode error = U_ZERO_ERROR;
    std::int32_t length = 0;
    toUtf8_(utf8.data(), lengthOf(utf8), &length, text.data(), lengthOf(text), &error);
    utf8.resize(U_SUCCESS(error) ? static_cast<std::size_t>(length) : 0);
    return utf8;
  }

  const UNormalizer2* decomposition_ = nullptr;
  decltype(&unorm2_normalize) normalize_ = QEV_ICU(unorm2_normalize);
  decltype(&u_strFoldCase) fold_ = QEV_ICU(u_strFoldCase);
  decltype(&u_strFromUTF8) fromUtf8_ = QEV_ICU(u_strFromUTF8);
  decltype(&u_strToUTF8) toUtf8_ = QEV_ICU(u_strToUTF8);
  decltype(&u_charType) typeOf_ = QEV_ICU(u_charType);
};

const Folding& folding() {
  static const Folding folding = [] {
    Folding made;
    if (!made.isUsable()) {
      reportDiagnostic(
          std::string("text: accents and capitals beyond ASCII are not ignored, because "
                      "the library ") +
          icuLibraryName() + " cannot be used; install ICU");
    }
    return made;
  }();
  return folding;
}

}  // namespace

std::string searchForm(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<std::uint8_t>(c) < 0x80; };
  if (!std::ranges::all_of(text, isAscii) && folding().isUsable())
    return folding().folded(repairedUtf8(text));
  std::string form(text);
  for (char& c : form) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return form;
}

}  // namespace foundation
