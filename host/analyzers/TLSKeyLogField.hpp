#pragma once

#include "viewkit/StoredPreference.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace zorvantine {

// Where the TLS analyzer finds the session keys that browsers write down.
struct TLSKeyLogField {
  viewkit::StoredPreference<std::string> file{"com_velloquin_qev_tls_key_log", ""};

  viewkit::View body() const;
};

}  // namespace zorvantine
