#pragma once

#include "viewkit/Geometry.hpp"
#include "viewkit/Visual.hpp"

#include <QPainter>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QTextLayout;

namespace qt {

// A paragraph broken into the lines that are drawn. Measuring and drawing use the same one, so what
// was measured is what is seen.
class TextLines {
public:
  // Lines no wider than `maxWidth`, and no more of them than the visual's limit and `maxHeight`
  // allow (one at the least); what does not fit is elided as the visual says. Kept for the next
  // time.
  static std::shared_ptr<const TextLines> of(const viewkit::TextVisual& visual,
                                             std::optional<double> maxWidth,
                                             std::optional<double> maxHeight,
                                             Qt::LayoutDirection direction);

  TextLines(const QString& text, const QFont& font, int lineLimit, Qt::TextElideMode elision,
            std::optional<double> maxWidth, std::optional<double> maxHeight,
            Qt::LayoutDirection direction);
  ~TextLines();

  // Whole pixels, so that baselines are the same at every scale.
  QSizeF size() const { return size_; }
  double firstBaseline() const;
  double lastBaseline() const;
  bool isElided() const { return isElided_; }

  // Lines start at the leading edge of a box of this width.
  void draw(QPainter& painter, QPointF origin, double width) const;

private:
  struct Line {
    std::unique_ptr<QTextLayout> layout;
    double top = 0;
    double baseline = 0;
    double width = 0;
  };

  std::vector<Line> lines_;
  QSizeF size_;
  bool isElided_ = false;
  bool rightToLeft_ = false;
};

}  // namespace qt
