// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>

namespace QEVSettings {

// A row with a switch for a setting of the updater. A click on the text also turns the switch.
struct UpdateRow {
  viewkit::SymbolName symbol;
  // The setting in the store, which an administrator may have locked.
  viewkit::StoredPreference<bool> stored;
  // A localisation key.
  std::string textKey;
  viewkit::Binding<bool> isOn;
  // A disabled row is dimmed and ignores clicks.
  bool isEnabled = true;
  // Called after each change of the value, whatever its cause.
  std::function<void(bool)> onChange;

  viewkit::View body() const;
};

}  // namespace QEVSettings
