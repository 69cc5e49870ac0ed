// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace QEVSettings {

// A bar above the tabs with a message and buttons. Assistive technology announces the message as an
// alert when the bar appears and for each new `id`.
struct NoticeBar {
  viewkit::SymbolName symbol;
  appkit::Color color;
  std::string text;
  std::string id;
  viewkit::View buttons = {};

  viewkit::View body() const;
};

}  // namespace QEVSettings
