// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace QEVSettings {

// The display names of the machine's time zones; a base class of the view that lists them.
struct QEVTimeZones {
  // One name for each time-zone identifier of the machine, in the order of the identifiers: the
  // name from the host's LocalizableTimeZones.strings, or else the identifier.
  //
  // Each call reads the file. When it cannot be read, the list is empty and the reason is logged.
  // A file that does not match the machine's identifiers is logged too. Main thread.
  static std::vector<std::string> localizedTimeZoneNames();
};

}  // namespace QEVSettings
