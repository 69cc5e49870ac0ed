#pragma once

#include "QEVSettings/StorageNotices.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// The bars of the settings window for what StorageNotices has to say: one for a problem, which
// stays while the problem does, and one for a recovery, with a button that dismisses it. Assistive
// technology is told of each new text as an alert.
struct StorageNotice {
  viewkit::ObservedObject<StorageNotices> notices;

  viewkit::View body() const;

  friend bool operator==(const StorageNotice&, const StorageNotice&) = default;
};

}  // namespace QEVSettings
