// SPDX-License-Identifier: MIT
#pragma once

#include "analyzers/AnalyzerDescription.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace zorvantine {

// A field for the file in which browsers log their TLS session keys.
struct TLSKeyLogField {
  viewkit::StoredPreference<std::string> file{kKeyLogKey, ""};

  viewkit::View body() const;
};

}  // namespace zorvantine
