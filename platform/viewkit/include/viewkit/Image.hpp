// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"
#include "viewkit/Visual.hpp"

#include <optional>
#include <string>

namespace viewkit {

// A symbol, drawn in the colour of the surroundings, or a picture of the host's.
//
// A symbol is as large as a line of the surrounding text, a picture as large as it says itself; a
// resizable image takes the size that it is offered and is stretched over it, unless it is to keep
// its aspect ratio.
//
//     HStack({}, {Image::symbol("clock"), Image::named("Portrait").resizable().scaledToFit()})
class Image : public Modifiers<Image> {
public:
  static Image symbol(SymbolName name);
  // The picture with this name in the main bundle: NAME.svg or NAME.png. Nothing is drawn where
  // there is none.
  static Image named(const std::string& name);

  Image resizable() const;
  // Keeps the aspect ratio: within the space, or over all of it; what then hangs over is seen
  // unless it is clipped. Symbols always fit.
  Image scaledToFit() const;
  Image scaledToFill() const;

  operator View() const;

private:
  Image() = default;

  std::optional<SymbolName> symbol_;
  std::string path_;
  bool resizable_ = false;
  ImageVisual::Mode mode_ = ImageVisual::Mode::stretch;
};

}  // namespace viewkit
