#pragma once

#include "QEVCommonTools/QEVHelpAnchor.hpp"

#include <string>
#include <vector>

namespace QEVCommonTools {

// What the help says at one place, in the person's language.
struct HelpText {
  std::string title;
  std::vector<std::string> paragraphs;

  static HelpText at(QEVHelpAnchor anchor);
};

}  // namespace QEVCommonTools
