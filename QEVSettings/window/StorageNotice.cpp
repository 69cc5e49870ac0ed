// SPDX-License-Identifier: MIT
#include "window/StorageNotice.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "window/NoticeBar.hpp"

#include <string>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

View bar(SymbolName symbol, Color color, const std::string& text, const View& button) {
  return NoticeBar{.symbol = symbol, .color = color, .text = text, .id = text, .buttons = button};
}

}  // namespace

View StorageNotice::body() const {
  const auto problem = notices->problem();
  const auto recovery = notices->recovery();
  const auto dismiss = [self = *this] { self.notices->dismissRecovery(); };

  return VStack(
      {.spacing = points(Spacing::s5)},
      {
          problem ? bar("exclamationmark.triangle.fill", Color::systemRed(), *problem, View())
                  : View(),
          recovery ? bar("info.circle.fill", Color::accent(), *recovery,
                         Button(localized("Dismiss"), dismiss))
                   : View(),
      });
}

}  // namespace QEVSettings
