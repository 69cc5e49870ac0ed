// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QWidget>

class QModelIndex;
class QScrollArea;

namespace twin {

class AnalyzerList;
class AnalyzerModel;

// The list of the loaded analyzers, and the details of the selected one beside it. The store keeps
// the selection.
class AnalyzerPage final : public QWidget {
public:
  // The store outlives the page.
  explicit AnalyzerPage(QEVSettings::PreferencesStore& store);

  AnalyzerList& list() const { return *list_; }
  QScrollArea& details() const { return *details_; }

private:
  void select(const QModelIndex& index);

  QEVSettings::PreferencesStore& store_;
  AnalyzerModel* model_;
  AnalyzerList* list_;
  QScrollArea* details_;
};

}  // namespace twin
