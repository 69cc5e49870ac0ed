#pragma once

#include <string>
#include <vector>

namespace QEVSettings {

// Gives whoever adopts it the names of the machine's time zones.
struct QEVTimeZones {
  // One name for each identifier that the machine knows, in the order of the identifiers: the name
  // that the host's LocalizableTimeZones.strings has for it, or the identifier itself.
  //
  // The file is read anew each time. A file that cannot be read is logged, and the list is empty;
  // one that does not fit the machine's identifiers is logged as well. Main thread.
  static std::vector<std::string> localizedTimeZoneNames();
};

}  // namespace QEVSettings
