// SPDX-License-Identifier: MIT
#include "PageView.hpp"

#include "QEVModels/QEVPlugInsController.hpp"

namespace peers {

namespace {

constexpr int kListWidth = 162;
constexpr int kMargin = 16;

const auto& analyzers() { return QEVModels::QEVPlugInsController::sharedManager().plugInStructs(); }

GtkListItemFactory* rowFactory() {
  GtkListItemFactory* const factory = gtk_signal_list_item_factory_new();
  const auto setUp = +[](GtkListItemFactory* /*factory*/, GtkListItem* item) {
    GtkWidget* const label = gtk_label_new(nullptr);
    gtk_label_set_xalign(GTK_LABEL(label), 0);
    gtk_list_item_set_child(item, label);
  };
  const auto bind = +[](GtkListItemFactory* /*factory*/, GtkListItem* item) {
    auto* const title = GTK_STRING_OBJECT(gtk_list_item_get_item(item));
    gtk_label_set_text(GTK_LABEL(gtk_list_item_get_child(item)),
                       gtk_string_object_get_string(title));
  };
  g_signal_connect(factory, "setup", G_CALLBACK(setUp), nullptr);
  g_signal_connect(factory, "bind", G_CALLBACK(bind), nullptr);
  return factory;
}

GtkWidget* scrolled(GtkWidget* child) {
  GtkWidget* const area = gtk_scrolled_window_new();
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(area), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
  gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(area), child);
  return area;
}

}  // namespace

PageView::PageView(QEVSettings::PreferencesStore& store)
    : store_(store),
      widget_(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kMargin)),
      scrolled_(scrolled(nullptr)) {
  GtkStringList* const titles = gtk_string_list_new(nullptr);
  for (const auto& analyzer : analyzers())
    gtk_string_list_append(titles, analyzer.plugInTitle.c_str());
  selection_ = gtk_single_selection_new(G_LIST_MODEL(titles));
  select(storedSelection(store_, analyzers().size()));
  const auto selected = +[](GtkSingleSelection* /*selection*/, GParamSpec* /*property*/,
                            PageView* own) { own->showSelected(); };
  g_signal_connect(selection_, "notify::selected", G_CALLBACK(selected), this);

  GtkWidget* const list = gtk_list_view_new(GTK_SELECTION_MODEL(selection_), rowFactory());
  gtk_widget_add_css_class(list, "navigation-sidebar");
  GtkWidget* const listArea = scrolled(list);
  gtk_widget_set_size_request(listArea, kListWidth, -1);
  gtk_widget_set_hexpand(scrolled_, TRUE);
  gtk_box_append(GTK_BOX(widget_), listArea);
  gtk_box_append(GTK_BOX(widget_), scrolled_);
  gtk_widget_set_margin_start(widget_, kMargin);
  gtk_widget_set_margin_end(widget_, kMargin);
  gtk_widget_set_margin_top(widget_, kMargin);
  gtk_widget_set_margin_bottom(widget_, kMargin);
  showSelected();
}

void PageView::showSelected() {
  const std::size_t row = gtk_single_selection_get_selected(selection_);
  if (row >= analyzers().size()) return;
  storeSelection(row, store_);
  auto details = std::make_unique<DetailsView>(detailsOf(analyzers()[row]), store_);
  gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scrolled_), details->widget());
  details_ = std::move(details);
}

}  // namespace peers
