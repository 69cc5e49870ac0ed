#pragma once

#include "appkit/Font.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>

namespace viewkit {

// Controls of the platform. Where a control has no title of its own, its help text names it to
// assistive technology.

View Button(std::string title, std::function<void()> action);
// A button without a look of its own around any view.
View PlainButton(const View& content, std::function<void()> action);
View HelpButton(std::function<void()> action);
View FontChooser(std::string title, const Binding<appkit::Font>& selection);

}  // namespace viewkit
