#pragma once

#include "viewkit/StoredPreference.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace zorvantine {

// A field for the file in which browsers log their TLS session keys.
struct TLSKeyLogField {
  viewkit::StoredPreference<std::string> file{"com_velloquin_qev_tls_key_log", ""};

  viewkit::View body() const;
};

}  // namespace zorvantine
