// SPDX-License-Identifier: MIT
#include "controls/menus/MenuList.hpp"

#include "bridge/Strings.hpp"
#include "paint/Fonts.hpp"
#include "paint/Look.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Style.hpp"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace qt {

namespace {

// Finds the width of the widest of many texts. Laying a text out is slow, so that is done only for
// texts whose letters add up to nearly the greatest width so far.
class TextWidths {
public:
  explicit TextWidths(const QFont& font) : metrics_(font) {}

  // The greater of `width` and the width of the text.
  double widerOf(double width, const QString& text) {
    const std::optional<double> sum = sumOfLetters(text);
    const bool isClear = sum && *sum * (1 + kKerning) < width;
    return isClear ? width : std::max(width, metrics_.horizontalAdvance(text));
  }

private:
  // The largest share by which kerning makes a text wider than the sum of its letters.
  static constexpr double kKerning = 0.1;

  // Nothing for a text with letters whose shape depends on their neighbours.
  std::optional<double> sumOfLetters(const QString& text) {
    double sum = 0;
    for (const QChar each : text) {
      if (each.script() != QChar::Script_Latin && each.script() != QChar::Script_Common)
        return std::nullopt;
      const auto [letter, isNew] = letters_.try_emplace(each.unicode());
      if (isNew) letter->second = metrics_.horizontalAdvance(each);
      sum += letter->second;
    }
    return sum;
  }

  QFontMetricsF metrics_;
  std::unordered_map<char16_t, double> letters_;
};

class Model : public QAbstractListModel {
public:
  Model(const std::vector<viewkit::MenuItem>& items, QObject* parent)
      : QAbstractListModel(parent), items_(items) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const viewkit::MenuItem& item = items_.at(static_cast<size_t>(index.row()));
    if (role == Qt::DisplayRole) return toQString(item.title);
    if (role == Qt::FontRole && item.font) return fontOf(*item.font);
    return {};
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const bool isEnabled = items_.at(static_cast<size_t>(index.row())).isEnabled;
    return isEnabled ? QAbstractListModel::flags(index) : Qt::NoItemFlags;
  }

private:
  const std::vector<viewkit::MenuItem>& items_;
};

class Delegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    return {item.fontMetrics.horizontalAdvance(item.text) + 2 * look::menu::kItemHorizontalPadding,
            item.fontMetrics.height() + 2 * look::menu::kItemVerticalPadding};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const bool isCurrent = item.state & QStyle::State_Selected;
    painter->save();
    if (isCurrent) {
      const QColor fill = item.palette.color(QPalette::Active, QPalette::Highlight);
      drawRoundedRect(*painter, item.rect, {.radius = look::menu::kItemRadius, .fill = fill});
    }
    const bool isEnabled = item.state & QStyle::State_Enabled;
    painter->setPen(item.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled,
                                       isCurrent ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(item.font);
    const QRect area = item.rect.adjusted(look::menu::kItemHorizontalPadding, 0,
                                          -look::menu::kItemHorizontalPadding, 0);
    const int leading = item.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter->drawText(area, leading | Qt::AlignVCenter | Qt::TextSingleLine,
                      item.fontMetrics.elidedText(item.text, Qt::ElideRight, area.width()));
    painter->restore();
  }
};

bool haveOneFont(const std::vector<viewkit::MenuItem>& items) {
  return std::ranges::all_of(
      items, [&](const viewkit::MenuItem& item) { return item.font == items.front().font; });
}

bool hasWordThatBegins(const QString& title, const QString& typed) {
  for (qsizetype at = title.indexOf(typed, 0, Qt::CaseInsensitive); at >= 0;
       at = title.indexOf(typed, at + 1, Qt::CaseInsensitive)) {
    if (at == 0 || !title.at(at - 1).isLetterOrNumber()) return true;
  }
  return false;
}

}  // namespace

MenuList::MenuList(const std::vector<viewkit::MenuItem>& items, QWidget& opener, QWidget& parent)
    : QListView(&parent), items_(items), opener_(&opener), openedAt_(QCursor::pos()) {
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(haveOneFont(items));
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(NoEditTriggers);
  setMouseTracking(true);
  viewport()->setAutoFillBackground(false);
  setModel(new Model(items, this));
  setItemDelegate(new Delegate(this));
}

void MenuList::pick(int row) {
  if (row >= 0 && row < rowCount() && isEnabled(row) && picked_) picked_(row);
}

QString MenuList::title(int row) const {
  return toQString(items_.at(static_cast<size_t>(row)).title);
}

void MenuList::setCurrentRow(int row) {
  if (row >= 0) setCurrentIndex(model()->index(row, 0));
}

QRect MenuList::rowRect(int row) const {
  if (uniformItemSizes()) {
    const int height = sizeHintForRow(0);
    return {0, row * height, width(), height};
  }
  int top = 0;
  for (int i = 0; i < row; ++i) top += sizeHintForRow(i);
  return {0, top, width(), sizeHintForRow(row)};
}

int MenuList::contentWidth() const {
  double width = 0;
  TextWidths widths(font());
  for (const viewkit::MenuItem& item : items_) {
    const QString title = toQString(item.title);
    width = item.font ? std::max(width, QFontMetricsF(fontOf(*item.font)).horizontalAdvance(title))
                      : widths.widerOf(width, title);
  }
  return static_cast<int>(std::ceil(width)) + 2 * look::menu::kItemHorizontalPadding;
}

int MenuList::contentHeight() const {
  return rowRect(static_cast<int>(items_.size()) - 1).bottom() + 1;
}

void MenuList::keyboardSearch(const QString& typed) {
  if (!sinceTyped_.isValid() ||
      sinceTyped_.hasExpired(qint64{3} * QApplication::keyboardInputInterval()))
    typed_.clear();
  sinceTyped_.restart();
  typed_ += typed;
  const auto begins = [this](const viewkit::MenuItem& item) {
    return toQString(item.title).startsWith(typed_, Qt::CaseInsensitive);
  };
  const auto hasWord = [this](const viewkit::MenuItem& item) {
    return hasWordThatBegins(toQString(item.title), typed_);
  };
  auto found = std::ranges::find_if(items_, begins);
  if (found == items_.end()) found = std::ranges::find_if(items_, hasWord);
  if (found == items_.end()) return;
  setCurrentRow(static_cast<int>(found - items_.begin()));
  scrollTo(currentIndex(), PositionAtCenter);
}

// Qt would make the first item the current one without showing it, and Return would pick it.
void MenuList::focusInEvent(QFocusEvent* event) {
  const bool hadCurrent = currentIndex().isValid();
  QListView::focusInEvent(event);
  if (!hadCurrent) selectionModel()->clearCurrentIndex();
}

void MenuList::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool picks = isReturn || (event->key() == Qt::Key_Space && typed_.isEmpty());
  if (picks) {
    // A key that repeats is the one that opened the menu.
    if (!event->isAutoRepeat()) pick(currentRow());
  } else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Tab) {
    window()->close();
  } else {
    QListView::keyPressEvent(event);
  }
}

void MenuList::mousePressEvent(QMouseEvent* event) {
  armed_ = true;
  QListView::mousePressEvent(event);
}

void MenuList::mouseMoveEvent(QMouseEvent* event) {
  const QPoint onScreen = event->globalPosition().toPoint();
  if ((onScreen - openedAt_).manhattanLength() >= QApplication::startDragDistance()) armed_ = true;
  const QModelIndex index = indexAt(event->position().toPoint());
  if (!armed_ || !index.isValid() || !isEnabled(index.row()) || index == currentIndex()) return;
  // Otherwise the list would scroll the item under the pointer away.
  setAutoScroll(false);
  setCurrentIndex(index);
  setAutoScroll(true);
}

void MenuList::mouseReleaseEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (armed_ && index.isValid() && viewport()->rect().contains(event->position().toPoint())) {
    pick(index.row());
    return;
  }
  armed_ = true;
}

}  // namespace qt
