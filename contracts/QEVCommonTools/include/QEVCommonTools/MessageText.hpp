// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <string>

namespace QEVCommonTools {

// What a message says of what was entered.
//
//     messageText(correction.message(), MessageKind::notice)
enum class MessageKind {
  problem,  // what was entered is not stored, or something does not work
  notice,   // what was entered was corrected and is stored
};

// A message under a field or beside a control, with a symbol before it that tells its kind. It is
// announced to assistive technology when it appears and when it changes. An empty text is no view.
viewkit::View messageText(const std::string& text, MessageKind kind);

}  // namespace QEVCommonTools
