#include "paint/TextLines.hpp"

#include "paint/Fonts.hpp"
#include "paint/KeptValues.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

// Layout adds up widths in another order than the text engine does.
constexpr double kRoundingSlack = 1.0 / 64;

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

}  // namespace

TextLines::TextLines(const QString& text, const QFont& font, int lineLimit,
                     Qt::TextElideMode elision, std::optional<double> maxWidth,
                     std::optional<double> maxHeight, Qt::LayoutDirection direction)
    : rightToLeft_(direction == Qt::RightToLeft) {
  QString source = text;
  source.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace('\n', QChar::LineSeparator);
  const QTextOption options = optionsFor(direction);
  const QFontMetricsF metrics(font);
  const double ascent = std::ceil(metrics.ascent());
  const double lineHeight = ascent + std::ceil(metrics.descent());
  const bool isBounded = maxWidth && std::isfinite(*maxWidth);
  const double width = isBounded ? std::max(*maxWidth, 0.0) + kRoundingSlack : 1e6;

  std::vector<Break> breaks = breaksOf(source, font, options, width);
  size_t allowed = breaks.size();
  if (lineLimit > 0) allowed = std::min(allowed, static_cast<size_t>(lineLimit));
  if (maxHeight) {
    const double fitting = std::floor((*maxHeight + kRoundingSlack) / lineHeight);
    if (fitting < static_cast<double>(allowed))
      allowed = static_cast<size_t>(std::max(fitting, 1.0));
  }
  isElided_ = allowed < breaks.size();
  breaks.resize(allowed);

  double top = 0;
  for (size_t i = 0; i < breaks.size(); ++i) {
    const bool isCut = isElided_ && i + 1 == breaks.size();
    QString content = source.mid(breaks[i].start, isCut ? -1 : breaks[i].length);
    if (content.endsWith(QChar::LineSeparator)) content.chop(1);
    if (isCut) {
      content.replace(QChar::LineSeparator, ' ');
      // A line that ended where the text says so has room to spare, and still must show that it was
      // cut.
      const QString whole =
          metrics.horizontalAdvance(content) <= width ? content + QChar(0x2026) : content;
      content = metrics.elidedText(whole, elision, width);
    }
    Line line{.layout = std::make_unique<QTextLayout>(content, font)};
    QTextOption one = options;
    one.setWrapMode(QTextOption::NoWrap);
    line.layout->setTextOption(one);
    line.layout->setCacheEnabled(true);
    line.layout->beginLayout();
    QTextLine drawn = line.layout->createLine();
    double lineAscent = ascent;
    double height = lineHeight;
    if (drawn.isValid()) {
      drawn.setLineWidth(1e6);
      line.width = drawn.naturalTextWidth();
      // Characters from another font may be taller.
      lineAscent = std::max(ascent, std::ceil(drawn.ascent()));
      height = lineAscent + std::max(lineHeight - ascent, std::ceil(drawn.descent()));
      drawn.setLineWidth(std::ceil(line.width));
      drawn.setPosition({0, lineAscent - drawn.ascent()});
    }
    line.layout->endLayout();
    line.top = top;
    line.baseline = top + lineAscent;
    top += height;
    size_.setWidth(std::max(size_.width(), std::ceil(line.width - kRoundingSlack)));
    lines_.push_back(std::move(line));
  }
  size_.setHeight(top);
  if (isBounded) size_.setWidth(std::min(size_.width(), std::max(*maxWidth, 0.0)));
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
  const Key key{.text = text(visual.text),
                .font = font,
                .lineLimit = visual.lineLimit,
                .truncation = visual.truncation,
                .maxWidth = maxWidth.value_or(-1),
                .maxHeight = maxHeight.value_or(-1),
                .direction = direction};
  return keptValue<std::shared_ptr<const TextLines>, 2048>(key, [&] {
    return std::make_shared<const TextLines>(
        key.text, font, visual.lineLimit,
        visual.truncation == viewkit::Truncation::middle ? Qt::ElideMiddle : Qt::ElideRight,
        maxWidth, maxHeight, direction);
  });
}

}  // namespace qt
