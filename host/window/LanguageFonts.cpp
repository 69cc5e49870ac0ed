// SPDX-License-Identifier: MIT
#include "window/LanguageFonts.hpp"

#include "foundation/Translation.hpp"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <array>
#include <string_view>

namespace zorvantine {

namespace {

struct Letters {
  std::string_view language;
  QFontDatabase::WritingSystem system;
  std::string_view package;  // which has a font with them
};

constexpr std::array kLetters{
    Letters{"ar", QFontDatabase::Arabic, "fonts-dejavu-core"},
    Letters{"ja", QFontDatabase::Japanese, "fonts-noto-cjk"},
    Letters{"zh-Hans", QFontDatabase::SimplifiedChinese, "fonts-noto-cjk"},
};
constexpr Letters kOtherLetters{"", QFontDatabase::Latin, "fonts-dejavu-core"};

}  // namespace

std::optional<std::string> missingFontMessage(const std::string& language) {
  const auto* const found = std::ranges::find(kLetters, language, &Letters::language);
  const Letters& letters = found != kLetters.end() ? *found : kOtherLetters;
  if (!QFontDatabase::families(letters.system).isEmpty()) return std::nullopt;
  return foundation::translated(
      "no font has the letters of the language %1, so boxes stand for them; install the package %2",
      {language, letters.package});
}

}  // namespace zorvantine
