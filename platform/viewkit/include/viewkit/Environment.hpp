// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "viewkit/EnvironmentObjects.hpp"
#include "viewkit/Geometry.hpp"

#include <functional>
#include <memory>

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
  // What the window gives to its views beside the store. `environmentObject` adds to it for a part
  // of the window.
  EnvironmentObjects objects = {};

  // The object of this type that was given nearest to the view; null when there is none.
  template <class T>
  std::shared_ptr<T> object() const {
    return objects.find<T>();
  }

  // The environment of the view whose body is running; outside of a body, one over the standard
  // preferences store.
  static Environment current();

  // Equal with the same store object, the same settings and the same objects.
  friend bool operator==(const Environment& a, const Environment& b) {
    return &a.defaultStore.get() == &b.defaultStore.get() &&
           a.layoutDirection == b.layoutDirection && a.reducedMotion == b.reducedMotion &&
           a.objects == b.objects;
  }
};

}  // namespace viewkit
