// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/SymbolName.hpp"

#include <string>

namespace viewkit {

using appkit::Color;

enum class Truncation { tail, middle };

// A paragraph of plain text.
struct TextVisual {
  std::string text;
  Font font = Font::body();
  Color color = Color::primary();
  // 0 is as many lines as the text needs.
  int lineLimit = 0;
  Truncation truncation = Truncation::tail;

  friend bool operator==(const TextVisual&, const TextVisual&) = default;
};

// A symbol, scaled to fit its frame and centred in it.
struct SymbolVisual {
  SymbolName name;
  Color color = Color::primary();

  friend bool operator==(const SymbolVisual&, const SymbolVisual&) = default;
};

// A picture from a file, SVG or PNG.
struct ImageVisual {
  enum class Mode {
    stretch,  // to the frame, whatever that does to the picture
    fit,      // the whole picture, centred
    fill,     // the whole frame; what hangs over is cut off
  };

  std::string path;
  Mode mode = Mode::stretch;

  friend bool operator==(const ImageVisual&, const ImageVisual&) = default;
};

// How a corner is rounded: as a quarter of a circle, or with a curvature that grows and shrinks
// gradually.
enum class CornerStyle { circular, continuous };

// A rounded rectangle that fills its frame; radius 0 is a plain one. The border lies inside the
// frame.
struct ShapeVisual {
  double cornerRadius = 0;
  CornerStyle cornerStyle = CornerStyle::circular;
  Color fill = Color::clear();
  Color border = Color::clear();
  double borderWidth = 0;

  friend bool operator==(const ShapeVisual&, const ShapeVisual&) = default;
};

}  // namespace viewkit
