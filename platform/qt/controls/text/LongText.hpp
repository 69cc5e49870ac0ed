#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;
class QTextEdit;

// A wrapped paragraph takes Qt time that grows with the square of its length, and a person may
// paste a million characters. Of a long text a document therefore holds the two ends, and between
// them one character that stands for all the rest: it is drawn as an ellipsis, selected, removed
// and brought back like any other, and what is read from the document is whole.
namespace qt::LongText {

// Longer texts are shortened.
inline constexpr int kLongestShown = 4096;

// Makes the document draw what is left out.
void prepare(QTextDocument& document);

// Puts the text in place of the selection.
void insert(QTextCursor& cursor, const QString& text);

// The whole text, of the selection or of everything.
QString selected(const QTextCursor& selection);
QString whole(const QTextDocument& document);

// Shortens what has grown too long, on the longer side of the caret; one undo takes that back
// together with the change before it.
void shorten(QTextEdit& edit);

}  // namespace qt::LongText
