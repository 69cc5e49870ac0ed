// SPDX-License-Identifier: MIT
#include "AnalyzerPage.hpp"

#include "AnalyzerDetails.hpp"
#include "AnalyzerList.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QScrollArea>

#include <algorithm>

namespace twin {

namespace {

constexpr int kMargin = 16;

}  // namespace

AnalyzerPage::AnalyzerPage(QEVSettings::PreferencesStore& store)
    : store_(store),
      model_(new AnalyzerModel(QEVModels::QEVPlugInsController::sharedManager().plugInStructs(),
                               this)),
      list_(new AnalyzerList(*model_, this)),
      details_(new QScrollArea(this)) {
  details_->setWidgetResizable(true);
  details_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->addWidget(list_);
  layout->addWidget(details_, 1);

  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) { select(current); });
  const auto stored =
      static_cast<int>(store_.integerForKey(QEVSettings::kAnalyzerSelectedIndex.name));
  list_->setCurrentIndex(
      model_->index(std::clamp(stored, 0, std::max(0, model_->rowCount() - 1)), 0));
}

void AnalyzerPage::select(const QModelIndex& index) {
  if (!index.isValid()) return;
  store_.setInteger(index.row(), QEVSettings::kAnalyzerSelectedIndex.name);
  details_->setWidget(new AnalyzerDetails(model_->analyzer(index.row()), store_));
}

}  // namespace twin
