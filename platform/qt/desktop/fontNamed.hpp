// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

namespace qt {

// The font of a description as desktops store it: a family, words for weight and slant, and a size
// in points, such as "Noto Sans Semi-Bold Italic 11". What the description leaves out is taken from
// `other`.
QFont fontNamed(const QString& description, const QFont& other);

}  // namespace qt
