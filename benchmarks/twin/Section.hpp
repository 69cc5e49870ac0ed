// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QString>
#include <QWidget>

namespace twin {

// A line between two sections of a page.
QFrame* sectionLine(QWidget* parent);

// Icon and title of a section.
QWidget* sectionHeader(const QString& title, QWidget* parent);

}  // namespace twin
