// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;
class QTextEdit;

// Laying out a wrapped paragraph takes Qt time that grows with the square of its length, and the
// user may paste a million characters. So a document holds the two ends of a long text, and
// between them one character that carries the rest as a property. That character is drawn as an
// ellipsis, and is selected, removed and restored like any other. The functions here read and write
// the whole text.
namespace qt::LongText {

// Texts with more UTF-16 units than this are shortened.
inline constexpr int kLongestShown = 4096;

// Makes the document draw the ellipsis. Called once for each document.
void prepare(QTextDocument& document);

// Replaces the selection by the text.
void insert(QTextCursor& cursor, const QString& text);

// The whole text of a selection, and of a document.
QString selected(const QTextCursor& selection);
QString whole(const QTextDocument& document);

// Shortens a text that has grown too long, on the longer side of the caret. Undo reverts this
// together with the change before it.
void shorten(QTextEdit& edit);

}  // namespace qt::LongText
