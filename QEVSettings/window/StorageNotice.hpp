// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/StorageNotices.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// The bars of the settings window that show the messages of StorageNotices. The bar of a problem
// stays as long as the problem. The bar of a recovery has a button that dismisses it. Assistive
// technology announces each new text as an alert.
struct StorageNotice {
  viewkit::ObservedObject<StorageNotices> notices;

  viewkit::View body() const;

  friend bool operator==(const StorageNotice&, const StorageNotice&) = default;
};

}  // namespace QEVSettings
