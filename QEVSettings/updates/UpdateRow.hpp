#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>

namespace QEVSettings {

// A switch for one of the updater's settings; a click on its text turns it as well.
struct UpdateRow {
  viewkit::SymbolName symbol;
  // Looked up in the module's string table.
  std::string textKey;
  viewkit::Binding<bool> isOn;
  // A disabled row is dimmed and does nothing.
  bool isEnabled = true;
  // Called with the new value when it has changed, whatever changed it.
  std::function<void(bool)> onChange;

  viewkit::View body() const;
};

}  // namespace QEVSettings
