#pragma once

#include "viewkit/Environment.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Visual.hpp"

#include <memory>
#include <optional>
#include <string>

namespace viewkit {

// What a view says for everything inside it. Shared along a branch of the tree and never changed: a
// modifier that says something makes a copy for what it contains.
struct Inherited {
  Environment environment;
  Color foreground = Color::primary();
  Font font = Font::body();
  bool enabled = true;
  // Both for the first node below that can carry them, not for everything below that one.
  std::string help = {};
  std::string accessibilityLabel = {};
};

using InheritedPtr = std::shared_ptr<const Inherited>;

}  // namespace viewkit
