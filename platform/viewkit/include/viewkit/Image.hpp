#pragma once

#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

namespace viewkit {

// A symbol, drawn in the colour of the surroundings. At first it is as large as a line of body text;
// a resizable one takes the size that it is offered, scaled to fit.
class Image : public Modifiers<Image> {
public:
  static Image symbol(SymbolName name) { return Image(name); }

  Image resizable() const {
    Image image = *this;
    image.resizable_ = true;
    return image;
  }

  operator View() const;

private:
  explicit Image(SymbolName name) : name_(name) {}

  SymbolName name_;
  bool resizable_ = false;
};

}  // namespace viewkit
