// SPDX-License-Identifier: MIT
#include "PortsModel.hpp"

namespace peers {

int PortsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(ports_.count());
}

QVariant PortsModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = at(index.row());
  switch (role) {
    case name: return static_cast<int>(ports_.name(row));
    case ports: return QString::fromStdString(ports_.ports(row));
    case transport: return static_cast<int>(ports_.transport(row));
    default: return {};
  }
}

QHash<int, QByteArray> PortsModel::roleNames() const {
  return {{name, "name"}, {ports, "ports"}, {transport, "transport"}};
}

void PortsModel::endTyping(int row) {
  ports_.endTyping(at(row));
  emit dataChanged(index(row), index(row), {ports});
}

void PortsModel::reset() {
  beginResetModel();
  ports_.reset();
  endResetModel();
}

QStringList PortsModel::listOf(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list << QString::fromStdString(text);
  return list;
}

}  // namespace peers
