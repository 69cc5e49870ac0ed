// SPDX-License-Identifier: MIT
#pragma once

#include "peers/PageModel.hpp"

#include <QAbstractListModel>
#include <QStringList>

#include <utility>

namespace peers {

// The protocols of one analyzer, with the roles that a row of the table binds to.
class PortsModel final : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(QStringList names READ names CONSTANT)
  Q_PROPERTY(QStringList transports READ transports CONSTANT)

public:
  enum Role { name = Qt::UserRole, ports, transport };

  explicit PortsModel(StoredPorts ports) : ports_(std::move(ports)) {}

  QStringList names() const { return listOf(ports_.names()); }
  QStringList transports() const { return listOf(transportNames()); }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  Q_INVOKABLE void chooseName(int row, int name) { ports_.chooseName(at(row), at(name)); }
  Q_INVOKABLE void chooseTransport(int row, int transport) {
    ports_.chooseTransport(at(row), at(transport));
  }
  Q_INVOKABLE void typePorts(int row, const QString& text) {
    ports_.typePorts(at(row), text.toStdString());
  }
  Q_INVOKABLE void endTyping(int row);
  Q_INVOKABLE void reset();

private:
  static std::size_t at(int row) { return static_cast<std::size_t>(row); }
  static QStringList listOf(const std::vector<std::string>& texts);

  StoredPorts ports_;
};

}  // namespace peers
