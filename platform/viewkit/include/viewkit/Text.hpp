// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"
#include "viewkit/Visual.hpp"

#include <optional>
#include <string>

namespace viewkit {

// Plain text, wrapped at the width that it is offered. Font and colour are those of the
// surroundings unless they are said here.
//
//     Text(name).font(Font::caption()).foreground(Color::secondary()).lineLimit(1)
class Text : public Modifiers<Text> {
public:
  explicit Text(std::string text) : text_(std::move(text)) {}

  Text font(Font font) const;
  Text foreground(Color color) const;
  // At most this many lines; what does not fit is replaced by an ellipsis at the end, or where
  // `truncation` says.
  Text lineLimit(int lines) const;
  Text truncation(Truncation truncation) const;
  // The user can select and copy it.
  Text selectable() const;
  // Shown in upper case, by the rules of Unicode; spoken as it is.
  Text uppercased() const;

  operator View() const;

private:
  template <class Change>
  Text with(Change change) const {
    Text text = *this;
    change(text);
    return text;
  }

  std::string text_;
  std::optional<Font> font_;
  std::optional<Color> color_;
  int lineLimit_ = 0;
  Truncation truncation_ = Truncation::tail;
  bool selectable_ = false;
  bool uppercased_ = false;
};

}  // namespace viewkit
