// SPDX-License-Identifier: MIT
#include "controls/text/LongText.hpp"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextObjectInterface>

#include <algorithm>
#include <cstring>

namespace qt::LongText {

namespace {

constexpr qsizetype kEnd = kLongestShown / 4;
constexpr int kRest = QTextFormat::UserObject;
constexpr int kRestText = QTextFormat::UserProperty;
constexpr QChar kEllipsis(0x2026);

class RestDrawing final : public QObject, public QTextObjectInterface {
public:
  using QObject::QObject;

  // The layout of the document looks the interface up by name.
  void* qt_metacast(const char* name) override {
    if (std::strcmp(name, qobject_interface_iid<QTextObjectInterface*>()) == 0) {
      return static_cast<QTextObjectInterface*>(this);
    }
    return QObject::qt_metacast(name);
  }

  QSizeF intrinsicSize(QTextDocument* document, int /*position*/,
                       const QTextFormat& /*format*/) override {
    const QFontMetricsF metrics(document->defaultFont());
    return {2 * metrics.horizontalAdvance(kEllipsis), metrics.ascent()};
  }

  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int /*position*/,
                  const QTextFormat& /*format*/) override {
    painter->save();
    painter->setFont(document->defaultFont());
    painter->setOpacity(painter->opacity() / 2);
    painter->drawText(rect, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextDontClip,
                      QString(kEllipsis));
    painter->restore();
  }
};

bool isRest(const QTextFragment& fragment) { return fragment.charFormat().objectType() == kRest; }

// The whole text between two positions of the document.
QString textBetween(const QTextDocument& document, int start, int end) {
  QString result;
  for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() < end;
       block = block.next()) {
    if (block.position() > start) result += '\n';
    for (auto each = block.begin(); !each.atEnd(); ++each) {
      const QTextFragment fragment = each.fragment();
      const int from = std::max(start, fragment.position());
      const int to = std::min(end, fragment.position() + fragment.length());
      if (from >= to) continue;
      if (isRest(fragment)) {
        for (int i = from; i < to; ++i) result += fragment.charFormat().stringProperty(kRestText);
      } else {
        result += QStringView(fragment.text()).mid(from - fragment.position(), to - from);
      }
    }
  }
  return result;
}

}  // namespace

void prepare(QTextDocument& document) {
  document.documentLayout()->registerHandler(kRest, new RestDrawing(&document));
}

void insert(QTextCursor& cursor, const QString& text) {
  cursor.beginEditBlock();
  if (text.size() <= kLongestShown) {
    cursor.insertText(text, {});
  } else {
    QTextCharFormat rest;
    rest.setObjectType(kRest);
    rest.setProperty(kRestText, text.mid(kEnd, text.size() - 2 * kEnd));
    cursor.insertText(text.left(kEnd), {});
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), rest);
    cursor.insertText(text.right(kEnd), {});
  }
  cursor.endEditBlock();
}

QString selected(const QTextCursor& selection) {
  return textBetween(*selection.document(), selection.selectionStart(), selection.selectionEnd());
}

QString whole(const QTextDocument& document) {
  return textBetween(document, 0, document.characterCount() - 1);
}

void shorten(QTextEdit& edit) {
  const int length = edit.document()->characterCount() - 1;
  if (length <= 2 * kLongestShown) return;
  QTextCursor caret = edit.textCursor();
  const int position = caret.position();
  const bool isBefore = position > length / 2;
  QTextCursor longer(edit.document());
  longer.setPosition(isBefore ? 0 : position);
  longer.setPosition(isBefore ? position : length, QTextCursor::KeepAnchor);
  const QString text = selected(longer);
  longer.joinPreviousEditBlock();
  insert(longer, text);
  longer.endEditBlock();
  caret.setPosition(isBefore ? longer.position() : position);
  edit.setTextCursor(caret);
}

}  // namespace qt::LongText
