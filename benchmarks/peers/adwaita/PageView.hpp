// SPDX-License-Identifier: MIT
#pragma once

#include "DetailsView.hpp"
#include "foundation/UserDefaults.hpp"

#include <memory>

namespace peers {

// The list of the loaded analyzers, and the details of the selected one beside it. The store keeps
// the selection.
class PageView {
public:
  // The store outlives the view.
  explicit PageView(QEVSettings::PreferencesStore& store);
  PageView(const PageView&) = delete;
  PageView& operator=(const PageView&) = delete;
  ~PageView() = default;

  // Owned by the window that it is put into.
  GtkWidget* widget() const { return widget_; }
  // Selects a row of the list as its click does.
  void select(std::size_t row) { gtk_single_selection_set_selected(selection_, guint(row)); }

private:
  void showSelected();

  QEVSettings::PreferencesStore& store_;
  GtkSingleSelection* selection_;
  GtkWidget* widget_;
  GtkWidget* scrolled_;
  std::unique_ptr<DetailsView> details_;
};

}  // namespace peers
