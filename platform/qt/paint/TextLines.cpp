// SPDX-License-Identifier: MIT
#include "paint/TextLines.hpp"

#include "bridge/Strings.hpp"
#include "paint/Cache.hpp"
#include "paint/Fonts.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

// Layout and the text engine add up widths in different orders, so their sums differ slightly.
constexpr double kRoundingSlack = 1.0 / 64;
constexpr double kUnlimitedWidth = 1e6;

struct Break {
  int start = 0;
  int length = 0;
};

struct Key {
  QString text;
  QFont font;
  int lineLimit;
  viewkit::Truncation truncation;
  double maxWidth;
  double maxHeight;
  Qt::LayoutDirection direction;

  friend bool operator==(const Key&, const Key&) = default;
  friend std::size_t qHash(const Key& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.text, key.font, key.lineLimit, static_cast<int>(key.truncation),
                      key.maxWidth, key.maxHeight, static_cast<int>(key.direction));
  }
};

QTextOption optionsFor(Qt::LayoutDirection direction) {
  QTextOption options;
  options.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  options.setTextDirection(direction);
  return options;
}

std::vector<Break> breaksOf(const QString& text, const QFont& font, const QTextOption& options,
                            double width) {
  std::vector<Break> breaks;
  QTextLayout layout(text, font);
  layout.setTextOption(options);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    breaks.push_back({line.textStart(), line.textLength()});
  }
  layout.endLayout();
  if (breaks.empty()) breaks.push_back({});
  return breaks;
}

// How many of the lines may be shown: at least one.
size_t allowedLines(size_t count, int lineLimit, std::optional<double> maxHeight,
                    double lineHeight) {
  if (lineLimit > 0) count = std::min(count, static_cast<size_t>(lineLimit));
  if (!maxHeight) return count;
  const double fitting = std::floor((*maxHeight + kRoundingSlack) / lineHeight);
  return fitting < static_cast<double>(count) ? static_cast<size_t>(std::max(fitting, 1.0)) : count;
}

// The last line that is shown of a text that goes on, with an ellipsis.
QString elided(QString content, const QFont& font, Qt::TextElideMode elision, double width) {
  const QFontMetricsF metrics(font);
  content.replace(QChar::LineSeparator, ' ');
  // A line that fits, because the text breaks after it, gets an ellipsis too.
  if (metrics.horizontalAdvance(content) <= width) content += QChar(0x2026);
  return metrics.elidedText(content, elision, width);
}

}  // namespace

// The height of a line in one font, in whole points.
struct TextLines::LineHeight {
  explicit LineHeight(const QFont& font) {
    const QFontMetricsF metrics(font);
    ascent = std::ceil(metrics.ascent());
    descent = std::ceil(metrics.descent());
  }
  double whole() const { return ascent + descent; }

  double ascent = 0;
  double descent = 0;
};

TextLines::TextLines(const QString& text, const QFont& font, int lineLimit,
                     Qt::TextElideMode elision, std::optional<double> maxWidth,
                     std::optional<double> maxHeight, Qt::LayoutDirection direction)
    : rightToLeft_(direction == Qt::RightToLeft) {
  QString source = text;
  source.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace('\n', QChar::LineSeparator);
  const QTextOption options = optionsFor(direction);
  const LineHeight height(font);
  const bool isBounded = maxWidth && std::isfinite(*maxWidth);
  const double width = isBounded ? std::max(*maxWidth, 0.0) + kRoundingSlack : kUnlimitedWidth;

  std::vector<Break> breaks = breaksOf(source, font, options, width);
  const size_t allowed = allowedLines(breaks.size(), lineLimit, maxHeight, height.whole());
  isElided_ = allowed < breaks.size();
  breaks.resize(allowed);
  for (size_t i = 0; i < breaks.size(); ++i) {
    const bool isCut = isElided_ && i + 1 == breaks.size();
    QString content = source.mid(breaks[i].start, isCut ? -1 : breaks[i].length);
    if (content.endsWith(QChar::LineSeparator)) content.chop(1);
    if (isCut) content = elided(content, font, elision, width);
    addLine(content, font, options, height);
  }
  if (isBounded) size_.setWidth(std::min(size_.width(), std::max(*maxWidth, 0.0)));
}

void TextLines::addLine(const QString& content, const QFont& font, QTextOption options,
                        const LineHeight& height) {
  Line line{.layout = std::make_unique<QTextLayout>(content, font), .top = size_.height()};
  options.setWrapMode(QTextOption::NoWrap);
  line.layout->setTextOption(options);
  line.layout->setCacheEnabled(true);
  line.layout->beginLayout();
  QTextLine drawn = line.layout->createLine();
  double ascent = height.ascent;
  double descent = height.descent;
  if (drawn.isValid()) {
    drawn.setLineWidth(kUnlimitedWidth);
    line.width = drawn.naturalTextWidth();
    // Characters of a substitute font may be taller.
    ascent = std::max(ascent, std::ceil(drawn.ascent()));
    descent = std::max(descent, std::ceil(drawn.descent()));
    drawn.setLineWidth(std::ceil(line.width));
    drawn.setPosition({0, ascent - drawn.ascent()});
  }
  line.layout->endLayout();
  line.baseline = line.top + ascent;
  size_ = {std::max(size_.width(), std::ceil(line.width - kRoundingSlack)),
           line.top + ascent + descent};
  lines_.push_back(std::move(line));
}

TextLines::~TextLines() = default;

double TextLines::firstBaseline() const { return lines_.front().baseline; }
double TextLines::lastBaseline() const { return lines_.back().baseline; }

void TextLines::draw(QPainter& painter, QPointF origin, double width) const {
  for (const Line& line : lines_) {
    const double x = rightToLeft_ ? width - std::ceil(line.width) : 0;
    line.layout->draw(&painter, origin + QPointF(x, line.top));
  }
}

std::shared_ptr<const TextLines> TextLines::of(const viewkit::TextVisual& visual,
                                               std::optional<double> maxWidth,
                                               std::optional<double> maxHeight,
                                               Qt::LayoutDirection direction) {
  const QFont font = fontOf(visual.font);
  const Key key{.text = toQString(visual.text),
                .font = font,
                .lineLimit = visual.lineLimit,
                .truncation = visual.truncation,
                .maxWidth = maxWidth.value_or(-1),
                .maxHeight = maxHeight.value_or(-1),
                .direction = direction};
  return cached<std::shared_ptr<const TextLines>, 2048>(key, [&] {
    return std::make_shared<const TextLines>(
        key.text, font, visual.lineLimit,
        visual.truncation == viewkit::Truncation::middle ? Qt::ElideMiddle : Qt::ElideRight,
        maxWidth, maxHeight, direction);
  });
}

}  // namespace qt
