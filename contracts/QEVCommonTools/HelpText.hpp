// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/QEVHelpAnchor.hpp"

#include <string>
#include <vector>

namespace QEVCommonTools {

// The text of a chapter of the help, in the user's language.
struct HelpText {
  std::string title;
  std::vector<std::string> paragraphs;

  static HelpText at(QEVHelpAnchor anchor);
};

}  // namespace QEVCommonTools
