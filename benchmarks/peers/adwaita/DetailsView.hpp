// SPDX-License-Identifier: MIT
#pragma once

#include "peers/PageModel.hpp"

#include <adwaita.h>

#include <memory>
#include <vector>

namespace peers {

// The description, options and ports of one analyzer. Each analyzer gets a view of its own, because
// their options differ.
class DetailsView {
public:
  // The store outlives the view.
  DetailsView(Details details, QEVSettings::PreferencesStore& store);
  DetailsView(const DetailsView&) = delete;
  DetailsView& operator=(const DetailsView&) = delete;
  ~DetailsView() = default;

  // Owned by the widget that it is put into, and not used after this object.
  GtkWidget* widget() const { return widget_; }

private:
  struct Switch {
    Option option;
    GtkSwitch* widget;
    QEVSettings::PreferencesStore& store;
    QEVSettings::Subscription stored;
  };
  // A cell of the ports table.
  struct Cell {
    StoredPorts& ports;
    std::size_t row;
  };

  GtkWidget* optionRow(Option option, QEVSettings::PreferencesStore& store);
  void showPorts();
  void addRow(GtkGrid* grid, std::size_t row);

  GtkWidget* widget_;
  GtkWidget* table_ = nullptr;
  std::vector<std::unique_ptr<Switch>> switches_;
  std::vector<std::unique_ptr<Cell>> cells_;
  std::unique_ptr<StoredPorts> ports_;
};

}  // namespace peers
