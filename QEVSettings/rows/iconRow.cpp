// SPDX-License-Identifier: MIT
#include "rows/iconRow.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::klear;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View iconRow(const IconRowLayout& layout, const View& content, const Binding<bool>& hovering) {
  return HStack({.alignment = layout.alignment, .spacing = points(Spacing::s5)},
                {
                    Image::symbol(layout.symbol)
                        .resizable()
                        .scaledToFit()
                        .frame(FixedFrame{.width = layout.iconSize, .height = layout.iconSize})
                        .frame(FixedFrame{.width = layout.iconColumn})
                        .foreground(Color::accent()),
                    content,
                })
      .padding(Edges::vertical, Spacing::s4)
      .padding(Edges::horizontal, Spacing::s5)
      .background(RoundedRectangle(kCornerLow, CornerStyle::continuous)
                      .fill(hovering.get() ? Color::primary().withOpacity(0.06) : klear()))
      .padding(Edges::leading, layout.leadingInset)
      .onHover([hovering](bool inside) { hovering.set(inside); });
}

}  // namespace QEVSettings
