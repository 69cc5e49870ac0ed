// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"

#include <QAbstractListModel>

#include <vector>

namespace peers {

// The loaded analyzers, with the role "title".
class AnalyzerModel final : public QAbstractListModel {
public:
  using Analyzers = std::vector<QEVDependencies::QEVPlugInStructure>;

  // The analyzers outlive the model.
  explicit AnalyzerModel(const Analyzers& analyzers) : analyzers_(analyzers) {}

  const QEVDependencies::QEVPlugInStructure& analyzer(std::size_t row) const {
    return analyzers_[row];
  }
  std::size_t count() const { return analyzers_.size(); }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(analyzers_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return QString::fromStdString(analyzer(std::size_t(index.row())).plugInTitle);
  }
  QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "title"}}; }

private:
  const Analyzers& analyzers_;
};

}  // namespace peers
