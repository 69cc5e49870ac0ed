// SPDX-License-Identifier: MIT
#pragma once

#include "headless/Element.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headless {

// Searches a branch of the presentation tree in the order of painting, which is that of reading.
class Finder {
public:
  Finder(const Window& window, const viewkit::PresentationNode& branch)
      : window_(window), branch_(branch) {}

  Element find(viewkit::Role role, std::optional<std::string_view> label) const;
  std::vector<Element> findAll(viewkit::Role role) const;
  Element findText(std::string_view text) const;

private:
  template <class Matches>
  std::vector<const viewkit::PresentationNode*> nodesThat(Matches matches) const;
  Element only(const std::vector<const viewkit::PresentationNode*>& found,
               const std::string& wanted) const;
  std::string whatThereIs(viewkit::Role role) const;

  const Window& window_;
  const viewkit::PresentationNode& branch_;
};

// The name of an element: its label, or its help text if it has no label.
const std::string& nameOf(const viewkit::Accessibility& accessibility);

}  // namespace headless
