// SPDX-License-Identifier: MIT
#include "QEVCommonTools/HelpHandler.hpp"

#include <utility>

namespace QEVCommonTools {

namespace {

HelpHandler& handlerOfProcess() {
  static HelpHandler handler;
  return handler;
}

}  // namespace

void setHelpHandler(HelpHandler handler) { handlerOfProcess() = std::move(handler); }

bool openHostHelp(QEVHelpAnchor anchor) {
  // The handler may replace itself.
  const HelpHandler handler = handlerOfProcess();
  return handler && handler(anchor);
}

}  // namespace QEVCommonTools
