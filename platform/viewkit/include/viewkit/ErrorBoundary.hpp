#pragma once

#include <exception>

namespace viewkit {

class View;

// Makes the view that stands in for one whose body threw.
using ErrorView = View (*)(const std::exception_ptr& thrown);

// The content, in which `errorView` stands in for each view whose body throws. Outside of such a
// boundary the exception ends the update and reaches whoever asked for it.
//
//     errorBoundary(plugIn.controls(), [](const std::exception_ptr&) { return View(Text("Error"));
//     })
View errorBoundary(const View& content, ErrorView errorView);

}  // namespace viewkit
