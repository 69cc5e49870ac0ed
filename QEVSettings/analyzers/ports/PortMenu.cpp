// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortMenu.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <utility>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View portMenu(const std::string& choice, const std::string& help,
              std::function<std::vector<MenuItem>()> items) {
  const View label = HStack({.spacing = points(Spacing::s2)},
                            {
                                Text(choice).font(Font::body()),
                                Image::symbol("chevron.up.chevron.down")
                                    .font(Font::caption2())
                                    .foreground(Color::secondary()),
                            })
                         .fixedSize();

  return Menu(label, choice, std::move(items)).fixedSize().help(help);
}

}  // namespace QEVSettings
