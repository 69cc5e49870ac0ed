// SPDX-License-Identifier: MIT
#pragma once

#include "history/RecentChangesModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <memory>

namespace zorvantine {

// The recent changes of the settings: a list of which one is selected, and a button that puts the
// value before it back.
//
//     View(RecentChangesView{.model = std::make_shared<RecentChangesModel>(store, layers, write)})
struct RecentChangesView {
  viewkit::ObservedObject<RecentChangesModel> model;
  // The number of the selected change; 0 for none.
  viewkit::State<std::int64_t> selected = 0;

  viewkit::View body() const;

private:
  viewkit::View list() const;
  viewkit::View row(const foundation::RememberedChange& change) const;
  viewkit::View footer() const;
  void selectItem(int item) const;
};

}  // namespace zorvantine
