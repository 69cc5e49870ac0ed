// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"

#include <QAbstractListModel>
#include <QListView>

#include <vector>

namespace twin {

// The loaded analyzers, by title.
class AnalyzerModel final : public QAbstractListModel {
public:
  using Analyzers = std::vector<QEVDependencies::QEVPlugInStructure>;

  // The analyzers outlive the model.
  AnalyzerModel(const Analyzers& analyzers, QObject* parent)
      : QAbstractListModel(parent), analyzers_(analyzers) {}

  const QEVDependencies::QEVPlugInStructure& analyzer(int row) const {
    return analyzers_[std::size_t(row)];
  }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  const Analyzers& analyzers_;
};

class AnalyzerList final : public QListView {
public:
  AnalyzerList(AnalyzerModel& model, QWidget* parent);
};

}  // namespace twin
