// SPDX-License-Identifier: MIT
#include "AnalyzerList.hpp"

namespace twin {

namespace {

constexpr int kWidth = 162;

}  // namespace

int AnalyzerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(analyzers_.size());
}

QVariant AnalyzerModel::data(const QModelIndex& index, int role) const {
  return role == Qt::DisplayRole ? QString::fromStdString(analyzer(index.row()).plugInTitle)
                                 : QVariant();
}

AnalyzerList::AnalyzerList(AnalyzerModel& model, QWidget* parent) : QListView(parent) {
  setModel(&model);
  setUniformItemSizes(true);
  setSpacing(1);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFixedWidth(kWidth);
}

}  // namespace twin
