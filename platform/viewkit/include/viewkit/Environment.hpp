// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "viewkit/Geometry.hpp"

#include <functional>

namespace viewkit {

// The settings that all views of a window share.
//
//     const viewkit::Environment environment{.defaultStore = store, .reducedMotion = true};
struct Environment {
  // The preferences store that stored preferences are bound to. It outlives every view.
  std::reference_wrapper<QEVSettings::PreferencesStore> defaultStore;
  LayoutDirection layoutDirection = LayoutDirection::leftToRight;
  // Changes are shown at once, without fading.
  bool reducedMotion = false;

  // The environment of the view whose body is running; outside of a body, one over the standard
  // preferences store.
  static Environment current();

  // Equal with the same store object and the same settings.
  friend bool operator==(const Environment& a, const Environment& b) {
    return &a.defaultStore.get() == &b.defaultStore.get() &&
           a.layoutDirection == b.layoutDirection && a.reducedMotion == b.reducedMotion;
  }
};

}  // namespace viewkit
