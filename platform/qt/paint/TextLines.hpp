// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"
#include "viewkit/Visual.hpp"

#include <QPainter>
#include <QString>
#include <QTextOption>

#include <memory>
#include <optional>
#include <vector>

class QTextLayout;

namespace qt {

// A text broken into lines. Measuring and drawing use the same object, so a text is drawn as it was
// measured. Lengths are points.
class TextLines {
public:
  // Lines no wider than `maxWidth`; at least one, and no more than the visual's limit and
  // `maxHeight` allow. A text that does not fit is elided as the visual says. Cached.
  static std::shared_ptr<const TextLines> of(const viewkit::TextVisual& visual,
                                             std::optional<double> maxWidth,
                                             std::optional<double> maxHeight,
                                             Qt::LayoutDirection direction);

  TextLines(const QString& text, const QFont& font, int lineLimit, Qt::TextElideMode elision,
            std::optional<double> maxWidth, std::optional<double> maxHeight,
            Qt::LayoutDirection direction);
  ~TextLines();

  // Whole points, so that baselines are the same at every scale.
  QSizeF size() const { return size_; }
  double firstBaseline() const;
  double lastBaseline() const;
  bool isElided() const { return isElided_; }

  // Draws the lines aligned to the leading edge of a box of this width.
  void draw(QPainter& painter, QPointF origin, double width) const;

private:
  struct Line {
    std::unique_ptr<QTextLayout> layout;
    double top = 0;
    double baseline = 0;
    double width = 0;
  };

  struct LineHeight;

  // Lays out one line below the lines before it.
  void addLine(const QString& content, const QFont& font, QTextOption options,
               const LineHeight& height);

  std::vector<Line> lines_;
  QSizeF size_{0, 0};
  bool isElided_ = false;
  bool rightToLeft_ = false;
};

}  // namespace qt
