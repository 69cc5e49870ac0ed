// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/EnvironmentObjects.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace detail {
View withEnvironmentObjects(const View& content,
                            std::function<EnvironmentObjects(const EnvironmentObjects&)> add);
}  // namespace detail

// Gives the object to the view and all that it contains, which find it by its type:
//
//     environmentObject(page, navigation)
//     Environment::current().object<Navigation>()      // in a body inside of the page
//
// The object nearest to a view hides one of the same type further out. A body does not run again
// when the object changes, unless it reads the object through an ObservedObject.
template <class T>
View environmentObject(const View& content, std::shared_ptr<T> object) {
  return detail::withEnvironmentObjects(
      content, [object = std::move(object)](const auto& outer) { return outer.with(object); });
}

}  // namespace viewkit
