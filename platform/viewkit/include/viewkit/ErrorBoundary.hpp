// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

namespace viewkit {

class View;

// Makes the view that replaces one whose body threw.
using ErrorView = View (*)(const std::exception_ptr& thrown);

// The content, with `errorView` in place of each view inside whose body throws. Outside of a
// boundary the exception ends the update and reaches the caller of ViewHost::update.
//
//     errorBoundary(plugIn.controls(),
//                   [](const std::exception_ptr&) { return View(Text("Error")); })
View errorBoundary(const View& content, ErrorView errorView);

}  // namespace viewkit
