// SPDX-License-Identifier: MIT
#include "support/Diagnostics.hpp"
#include "viewkit/Stacks.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <variant>

namespace viewkit {

namespace {

std::string textOf(const ViewId& id) {
  if (const auto* text = std::get_if<std::string>(&id)) return '"' + *text + '"';
  return std::to_string(std::get<std::int64_t>(id));
}

void checkIds(const std::vector<Children::Child>& views) {
  std::vector<const ViewId*> ids;
  for (const Children::Child& child : views) {
    if (child.key.id) ids.push_back(&*child.key.id);
  }
  const auto isLess = [](const ViewId* a, const ViewId* b) { return *a < *b; };
  std::sort(ids.begin(), ids.end(), isLess);
  const auto twin = std::adjacent_find(ids.begin(), ids.end(),
                                       [](const ViewId* a, const ViewId* b) { return *a == *b; });
  if (twin != ids.end()) {
    reportMistake("two views of one forEach have the id " + textOf(**twin) +
                  ": they are told apart by position");
  }
}

}  // namespace

Children::Children(std::initializer_list<Place> places) {
  std::size_t count = 0;
  for (const Place& place : places) count += place.view_.isEmpty() ? place.views_.size() : 1;
  children_.reserve(count);
  int position = 0;
  for (const Place& place : places) {
    if (!place.view_.isEmpty()) children_.push_back({{.position = position}, place.view_});
    if (place.views_.size() > 1) checkIds(place.views_);
    for (const Child& child : place.views_) {
      if (!child.view.isEmpty())
        children_.push_back({{.position = position, .id = child.key.id}, child.view});
    }
    ++position;
  }
}

}  // namespace viewkit
