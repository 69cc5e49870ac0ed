// SPDX-License-Identifier: MIT
#pragma once

#include "controls/text/LongText.hpp"

#include <QTextCursor>
#include <QTextEdit>

#include <algorithm>

namespace qt {

// Makes `wanted` the text of the editor. Only the part that differs is replaced, so the caret keeps
// its place and the change can be undone.
inline void editText(QTextEdit& edit, const QString& wanted) {
  const QString before = LongText::whole(*edit.document());
  QTextCursor cursor(edit.document());
  const bool isShownWhole = before.size() == edit.document()->characterCount() - 1;
  if (!isShownWhole || wanted.size() > LongText::kLongestShown) {
    cursor.select(QTextCursor::Document);
    LongText::insert(cursor, wanted);
    return;
  }
  const qsizetype shorter = std::min(before.size(), wanted.size());
  qsizetype same = 0;
  while (same < shorter && before[same] == wanted[same]) ++same;
  qsizetype sameAtEnd = 0;
  while (sameAtEnd < shorter - same &&
         before[before.size() - 1 - sameAtEnd] == wanted[wanted.size() - 1 - sameAtEnd]) {
    ++sameAtEnd;
  }
  cursor.setPosition(static_cast<int>(same));
  cursor.setPosition(static_cast<int>(before.size() - sameAtEnd), QTextCursor::KeepAnchor);
  LongText::insert(cursor, wanted.mid(same, wanted.size() - same - sameAtEnd));
}

}  // namespace qt
