// SPDX-License-Identifier: MIT
#include "QEVCommonTools/MessageText.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVCommonTools {

using namespace viewkit;

View messageText(const std::string& text, MessageKind kind) {
  if (text.empty()) return View();
  const bool isProblem = kind == MessageKind::problem;
  const SymbolName symbol =
      isProblem ? SymbolName("exclamationmark.triangle.fill") : SymbolName("info.circle.fill");
  const View row = HStack({.alignment = VerticalAlignment::top, .spacing = points(Spacing::s3)},
                          {
                              Image::symbol(symbol).font(Font::caption()),
                              Text(text).font(Font::caption()).fixedSize(false, true),
                          });
  return row.foreground(isProblem ? Color::systemRed() : Color::secondary())
      .accessibilityRole(Role::alert);
}

}  // namespace QEVCommonTools
