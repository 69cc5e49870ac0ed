// SPDX-License-Identifier: MIT
#include "desktop/fontNamed.hpp"

#include <QStringList>

#include <algorithm>
#include <array>

namespace qt {

namespace {

struct Word {
  QLatin1String text;
  QFont::Weight weight = QFont::Normal;
};

constexpr std::array<Word, 8> kWeights{{{QLatin1String("thin"), QFont::Thin},
                                        {QLatin1String("light"), QFont::Light},
                                        {QLatin1String("regular"), QFont::Normal},
                                        {QLatin1String("medium"), QFont::Medium},
                                        {QLatin1String("semi-bold"), QFont::DemiBold},
                                        {QLatin1String("bold"), QFont::Bold},
                                        {QLatin1String("heavy"), QFont::Black},
                                        {QLatin1String("black"), QFont::Black}}};

// Whether the word says how the font looks, and is no part of its family.
bool takeStyle(const QString& word, QFont& font) {
  const QString lower = word.toLower();
  const auto weight =
      std::ranges::find_if(kWeights, [&](const Word& each) { return lower == each.text; });
  if (weight != kWeights.end()) {
    font.setWeight(weight->weight);
    return true;
  }
  const bool isSlanted = lower == QLatin1String("italic") || lower == QLatin1String("oblique");
  if (isSlanted) font.setItalic(true);
  return isSlanted;
}

}  // namespace

QFont fontNamed(const QString& description, const QFont& other) {
  QStringList words = QString(description).replace(',', ' ').split(' ', Qt::SkipEmptyParts);
  QFont font = other;
  if (words.isEmpty()) return font;
  bool hasSize = false;
  const double size = words.constLast().toDouble(&hasSize);
  if (hasSize && size > 0) {
    font.setPointSizeF(size);
    words.removeLast();
  }
  while (!words.isEmpty() && takeStyle(words.constLast(), font)) words.removeLast();
  if (!words.isEmpty()) font.setFamilies({words.join(' ')});
  return font;
}

}  // namespace qt
