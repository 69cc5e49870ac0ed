// SPDX-License-Identifier: MIT
#include "DetailsView.hpp"

#include <string>
#include <utility>

namespace peers {

namespace {

constexpr int kSpacing = 12;

void append(GtkWidget* box, GtkWidget* child) { gtk_box_append(GTK_BOX(box), child); }

GtkWidget* text(const std::string& content, const char* style) {
  GtkWidget* const label = gtk_label_new(content.c_str());
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_widget_add_css_class(label, style);
  return label;
}

GtkWidget* selectable(const std::string& content, const char* style) {
  GtkWidget* const label = text(content, style);
  gtk_label_set_selectable(GTK_LABEL(label), TRUE);
  gtk_label_set_wrap(GTK_LABEL(label), TRUE);
  return label;
}

GtkWidget* group(const char* title, GtkWidget* icon) {
  GtkWidget* const widget = adw_preferences_group_new();
  adw_preferences_group_set_title(ADW_PREFERENCES_GROUP(widget), title);
  adw_preferences_group_set_header_suffix(ADW_PREFERENCES_GROUP(widget), icon);
  return widget;
}

GtkWidget* dropDown(const std::vector<std::string>& choices, std::size_t chosen) {
  std::vector<const char*> texts;
  texts.reserve(choices.size() + 1);
  for (const std::string& choice : choices) texts.push_back(choice.c_str());
  texts.push_back(nullptr);
  GtkWidget* const widget = gtk_drop_down_new_from_strings(texts.data());
  gtk_drop_down_set_selected(GTK_DROP_DOWN(widget), static_cast<guint>(chosen));
  gtk_widget_add_css_class(widget, "flat");
  return widget;
}

}  // namespace

DetailsView::DetailsView(Details details, QEVSettings::PreferencesStore& store)
    : widget_(gtk_box_new(GTK_ORIENTATION_VERTICAL, kSpacing)) {
  append(widget_, selectable(details.title, "title-2"));
  append(widget_, selectable(details.subtitle, "dim-label"));
  GtkWidget* const options = group("OPTIONS", gtk_image_new_from_icon_name("sliders-symbolic"));
  for (Option& option : details.options) {
    adw_preferences_group_add(ADW_PREFERENCES_GROUP(options), optionRow(std::move(option), store));
  }
  append(widget_, options);
  if (!details.ports) return;
  ports_ = std::make_unique<StoredPorts>(*std::move(details.ports), store);
  GtkWidget* const ports = group("PORTS", gtk_image_new_from_icon_name("sliders-symbolic"));
  table_ = adw_bin_new();
  adw_preferences_group_add(ADW_PREFERENCES_GROUP(ports), table_);
  append(widget_, ports);
  GtkWidget* const reset = gtk_button_new_with_label("Reset");
  gtk_widget_set_halign(reset, GTK_ALIGN_END);
  const auto clicked = +[](GtkButton* /*button*/, DetailsView* own) {
    own->ports_->reset();
    own->showPorts();
  };
  g_signal_connect(reset, "clicked", G_CALLBACK(clicked), this);
  append(widget_, reset);
  showPorts();
}

GtkWidget* DetailsView::optionRow(Option option, QEVSettings::PreferencesStore& store) {
  GtkWidget* const row = adw_action_row_new();
  adw_preferences_row_set_title(ADW_PREFERENCES_ROW(row), option.label.c_str());
  const std::string icon = option.icon + "-symbolic";
  adw_action_row_add_prefix(ADW_ACTION_ROW(row), gtk_image_new_from_icon_name(icon.c_str()));
  GtkWidget* const toggle = gtk_switch_new();
  gtk_widget_set_valign(toggle, GTK_ALIGN_CENTER);
  gtk_switch_set_active(GTK_SWITCH(toggle), option.isOn(store));
  adw_action_row_add_suffix(ADW_ACTION_ROW(row), toggle);
  adw_action_row_set_activatable_widget(ADW_ACTION_ROW(row), toggle);

  switches_.push_back(std::make_unique<Switch>(Switch{
      .option = std::move(option), .widget = GTK_SWITCH(toggle), .store = store, .stored = {}}));
  Switch* const bound = switches_.back().get();
  bound->stored = store.observe(bound->option.key, [bound](std::string_view) {
    gtk_switch_set_active(bound->widget, bound->option.isOn(bound->store));
  });
  const auto toggled = +[](GtkSwitch* widget, GParamSpec* /*property*/, Switch* own) {
    const bool isOn = gtk_switch_get_active(widget) != FALSE;
    if (isOn != own->option.isOn(own->store)) own->store.setBool(isOn, own->option.key);
  };
  g_signal_connect(toggle, "notify::active", G_CALLBACK(toggled), bound);
  return row;
}

void DetailsView::showPorts() {
  GtkWidget* const grid = gtk_grid_new();
  gtk_grid_set_row_spacing(GTK_GRID(grid), kSpacing / 2);
  gtk_grid_set_column_spacing(GTK_GRID(grid), kSpacing / 2);
  int column = 0;
  for (const char* title : {"NAME", "PORTS", "SOURCE"}) {
    gtk_grid_attach(GTK_GRID(grid), text(title, "dim-label"), column++, 0, 1, 1);
  }
  adw_bin_set_child(ADW_BIN(table_), grid);
  cells_.clear();
  for (std::size_t row = 0; row < ports_->count(); ++row) addRow(GTK_GRID(grid), row);
}

void DetailsView::addRow(GtkGrid* grid, std::size_t row) {
  cells_.push_back(std::make_unique<Cell>(Cell{.ports = *ports_, .row = row}));
  Cell* const cell = cells_.back().get();
  const int line = static_cast<int>(row) + 1;

  GtkWidget* const name = dropDown(ports_->names(), ports_->name(row));
  const auto nameChosen = +[](GtkDropDown* menu, GParamSpec* /*property*/, Cell* own) {
    own->ports.chooseName(own->row, gtk_drop_down_get_selected(menu));
  };
  g_signal_connect(name, "notify::selected", G_CALLBACK(nameChosen), cell);
  gtk_grid_attach(grid, name, 0, line, 1, 1);

  GtkWidget* const field = gtk_entry_new();
  gtk_widget_set_hexpand(field, TRUE);
  gtk_editable_set_text(GTK_EDITABLE(field), ports_->ports(row).c_str());
  gtk_entry_set_placeholder_text(GTK_ENTRY(field), "Protocol Ports");
  const auto typed = +[](GtkEditable* text, Cell* own) {
    own->ports.typePorts(own->row, gtk_editable_get_text(text));
  };
  g_signal_connect(field, "changed", G_CALLBACK(typed), cell);
  const auto ended = +[](GtkEntry* text, Cell* own) {
    own->ports.endTyping(own->row);
    gtk_editable_set_text(GTK_EDITABLE(text), own->ports.ports(own->row).c_str());
  };
  g_signal_connect(field, "activate", G_CALLBACK(ended), cell);
  gtk_grid_attach(grid, field, 1, line, 1, 1);

  GtkWidget* const transport = dropDown(transportNames(), ports_->transport(row));
  const auto transportChosen = +[](GtkDropDown* menu, GParamSpec* /*property*/, Cell* own) {
    own->ports.chooseTransport(own->row, gtk_drop_down_get_selected(menu));
  };
  g_signal_connect(transport, "notify::selected", G_CALLBACK(transportChosen), cell);
  gtk_grid_attach(grid, transport, 2, line, 1, 1);
}

}  // namespace peers
