// SPDX-License-Identifier: MIT
#pragma once

#include "ControlUse.hpp"
#include "headless/Element.hpp"

#include <algorithm>
#include <string>
#include <string_view>

namespace headless {

// The control of the node. Throws NoSuchElement, with `what` it should be, when it is another one.
template <class ControlType>
ControlType controlFor(const viewkit::PresentationNode& node, const char* what) {
  if (const auto* control = controlOf<ControlType>(&node)) return *control;
  throw NoSuchElement("the " + descriptionOf(node.accessibility) + " is no " + what);
}

// The item with this title. Throws NoSuchElement with the titles that there are when none has it.
template <class Items>
const typename Items::value_type& itemTitled(const Items& items, std::string_view title) {
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&](const auto& each) { return each.title == title; });
  if (item != items.end()) return *item;
  std::string titles;
  for (const auto& each : items) titles += (titles.empty() ? "\"" : ", \"") + each.title + '"';
  throw NoSuchElement("nothing is called \"" + std::string(title) +
                      "\" there; to choose from: " + (titles.empty() ? "nothing" : titles));
}

}  // namespace headless
