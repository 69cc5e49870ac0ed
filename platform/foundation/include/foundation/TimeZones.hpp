#pragma once

#include <string>
#include <vector>

namespace foundation {

// The identifiers of the time zones that this machine knows ("Europe/Berlin", "UTC"), other names for the
// same zone among them, sorted by their bytes. Read from the time-zone database anew by each call (some
// tenths of a millisecond); "UTC" alone on a machine without one.
std::vector<std::string> knownTimeZoneNames();

// The identifier of the time zone that the machine is set to: that of TZ, of /etc/localtime, or of
// /etc/timezone; "UTC" when none of them names one.
std::string currentTimeZoneName();

}  // namespace foundation
