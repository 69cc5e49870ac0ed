// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/SymbolName.hpp"

#include <string>

namespace viewkit {

using appkit::Color;

// Where a text that does not fit is cut.
//
//     Text(path).lineLimit(1).truncation(Truncation::middle)
enum class Truncation { tail, middle };

// A paragraph of plain text.
//
//     if (const auto* text = std::get_if<TextVisual>(&node.content)) draw(text->text, text->color);
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
//
//     if (const auto* symbol = std::get_if<SymbolVisual>(&node.content)) draw(symbol->name.text());
struct SymbolVisual {
  SymbolName name;
  Color color = Color::primary();

  friend bool operator==(const SymbolVisual&, const SymbolVisual&) = default;
};

// A picture from a file, SVG or PNG.
//
//     if (const auto* image = std::get_if<ImageVisual>(&node.content)) draw(image->path);
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
//
//     RoundedRectangle(4, CornerStyle::continuous).fill(Color::groupBackground())
enum class CornerStyle { circular, continuous };

// A rounded rectangle that fills its frame; radius 0 is a plain one. The border lies inside the
// frame.
//
//     if (const auto* shape = std::get_if<ShapeVisual>(&node.content)) draw(shape->fill);
struct ShapeVisual {
  double cornerRadius = 0;
  CornerStyle cornerStyle = CornerStyle::circular;
  Color fill = Color::clear();
  Color border = Color::clear();
  double borderWidth = 0;

  friend bool operator==(const ShapeVisual&, const ShapeVisual&) = default;
};

}  // namespace viewkit
