// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerModel.hpp"
#include "PortsModel.hpp"
#include "StoredSwitch.hpp"

#include <memory>
#include <vector>

namespace peers {

// What Page.qml binds to: the list, the selection, and the details of the selected analyzer.
class Page final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QAbstractListModel* analyzers READ analyzers CONSTANT)
  Q_PROPERTY(int selected READ selected WRITE select NOTIFY selectedChanged)
  Q_PROPERTY(QString title READ title NOTIFY selectedChanged)
  Q_PROPERTY(QString subtitle READ subtitle NOTIFY selectedChanged)
  Q_PROPERTY(QList<QObject*> options READ options NOTIFY selectedChanged)
  Q_PROPERTY(QAbstractListModel* ports READ ports NOTIFY selectedChanged)

public:
  // The store outlives the page.
  explicit Page(QEVSettings::PreferencesStore& store);

  QAbstractListModel* analyzers() { return &analyzers_; }
  int selected() const { return selected_; }
  QString title() const { return title_; }
  QString subtitle() const { return subtitle_; }
  QList<QObject*> options() const;
  QAbstractListModel* ports() const { return ports_.get(); }

  void select(int row);

signals:
  void selectedChanged();

private:
  void show(int row);

  QEVSettings::PreferencesStore& store_;
  AnalyzerModel analyzers_;
  int selected_ = 0;
  QString title_;
  QString subtitle_;
  std::vector<std::unique_ptr<StoredSwitch>> options_;
  std::unique_ptr<PortsModel> ports_;
};

}  // namespace peers
