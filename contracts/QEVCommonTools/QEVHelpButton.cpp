// SPDX-License-Identifier: MIT
#include "QEVCommonTools/QEVHelpButton.hpp"

#include "HelpText.hpp"
#include "QEVCommonTools/HelpHandler.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCommonTools/localized.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <cstddef>

namespace QEVCommonTools {

namespace {

using namespace viewkit;

View helpPage(const HelpText& help) {
  std::vector<std::size_t> order(help.paragraphs.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  return VStack(
             {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
             {
                 Text(help.title).font(Font::body().semibold()),
                 forEach(
                     order, [](std::size_t i) { return static_cast<std::int64_t>(i); },
                     [&](std::size_t i) { return Text(help.paragraphs[i]).font(Font::callout()); }),
             })
      .padding(Spacing::s7);
}

}  // namespace

View QEVHelpButton::body() const {
  return HelpButton([self = *this] {
           if (!openHostHelp(self.anchor)) self.isOpen.set(true);
         })
      .help(localized("Help"))
      .popover(isOpen.binding(), [anchor = anchor] { return helpPage(HelpText::at(anchor)); });
}

}  // namespace QEVCommonTools
