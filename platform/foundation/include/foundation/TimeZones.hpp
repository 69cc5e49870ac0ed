// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace foundation {

// The identifiers of the time zones that this machine knows ("Europe/Berlin", "UTC"), sorted by
// their bytes. Aliases of a zone are included. Each call reads the time-zone database, which takes
// some tenths of a millisecond. Without a database the result is "UTC".
std::vector<std::string> knownTimeZoneNames();

// The identifier of the current time zone: of the first that names one among the variable TZ,
// /etc/localtime and /etc/timezone; "UTC" when none does.
std::string currentTimeZoneName();

}  // namespace foundation
