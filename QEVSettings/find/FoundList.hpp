// SPDX-License-Identifier: MIT
#pragma once

#include "find/SettingsFinder.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// What the find field found: how much, and a list with a title and a place for each result.
struct FoundList {
  viewkit::ObservedObject<SettingsFinder> finder;

  viewkit::View body() const;
};

}  // namespace QEVSettings
