// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <string>

namespace QEVCommonTools {

// Settings that an administrator has locked.

// "Managed by your organization", in the user's language.
std::string managedText();

// A small lock with that text as its tooltip and for assistive technology.
viewkit::View managedMark();

// A control, or while its setting is locked the same control disabled, with the lock before it.
// The control gets another place in the tree, so one with a state of its own, such as a text field,
// is disabled by its owner instead.
viewkit::View managed(const viewkit::View& control, bool isManaged);

}  // namespace QEVCommonTools
