// SPDX-License-Identifier: MIT
#include "PortsTable.hpp"

#include "QEVDependencies/kQEVSourceProtocols.hpp"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace twin {

using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVNetworkProtocolList;

namespace {

constexpr int kFieldWidth = 120;

// In the order of the enumeration.
QStringList transportNames() {
  return {QStringLiteral("None"), QStringLiteral("TCP"), QStringLiteral("UDP"),
          QStringLiteral("UDP/TCP")};
}

QLabel* columnTitle(const QString& title, QWidget* parent) {
  auto* label = new QLabel(title, parent);
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

// A button that shows the choice and opens a menu of all choices.
QToolButton* menuButton(const QString& chosen, const QStringList& choices,
                        const std::function<void(int)>& choose, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(chosen);
  button->setAutoRaise(true);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  QObject::connect(button, &QToolButton::pressed, button, [button, choices, choose] {
    auto* menu = new QMenu(button);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < choices.size(); ++i) {
      menu->addAction(choices[i], button, [button, choices, choose, i] {
        button->setText(choices[i]);
        choose(i);
      });
    }
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
    button->setDown(false);
  });
  return button;
}

}  // namespace

PortsTable::PortsTable(QEVDependencies::AnalyzerPortsSpec ports,
                       QEVSettings::PreferencesStore& store, QWidget* parent)
    : QWidget(parent), ports_(std::move(ports)), stored_(ports_.networkProtocolKey, store) {
  auto* reset = new QPushButton(QStringLiteral("Reset"), this);
  reset->setToolTip(QStringLiteral("Reset to default ports"));
  connect(reset, &QPushButton::clicked, this, [this] { this->reset(); });

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(reset, 0, Qt::AlignRight);
  show(stored_.decode(ports_.defaultPorts));
}

void PortsTable::show(const QEVNetworkProtocolList& protocols) {
  delete rows_;
  protocols_.clear();
  rows_ = new QWidget(this);
  auto* grid = new QGridLayout(rows_);
  grid->setContentsMargins({});
  grid->addWidget(columnTitle(QStringLiteral("NAME"), rows_), 0, 0);
  grid->addWidget(columnTitle(QStringLiteral("PORTS"), rows_), 0, 1);
  grid->addWidget(columnTitle(QStringLiteral("SOURCE"), rows_), 0, 2);
  for (const Protocol& protocol : protocols) {
    // A copy, so that editing does not change the factory list.
    const auto copy = protocol->copied();
    protocols_.push_back(copy ? *copy : protocol);
    addRow(*grid, grid->rowCount(), protocols_.back());
  }
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, rows_);
}

void PortsTable::addRow(QGridLayout& grid, int row, const Protocol& protocol) {
  QStringList names;
  for (const std::string& name : ports_.defaultProtocolNames) names << QString::fromStdString(name);
  grid.addWidget(menuButton(
                     QString::fromStdString(protocol->protocolName), names,
                     [this, protocol, names](int i) {
                       protocol->protocolName = names[i].toStdString();
                       stored_.encode(protocols_);
                     },
                     rows_),
                 row, 0);

  auto* field = new QLineEdit(QString::fromStdString(protocol->protocolPorts), rows_);
  field->setPlaceholderText(QStringLiteral("Protocol Ports"));
  field->setMinimumWidth(kFieldWidth);
  connect(field, &QLineEdit::textEdited, this,
          [protocol](const QString& text) { protocol->protocolPorts = text.toStdString(); });
  connect(field, &QLineEdit::editingFinished, this, [this, protocol, field] {
    const auto result = stored_.validatedReporting(*protocol);
    if (result.ports.empty()) return;
    protocol->protocolPorts = result.ports;
    field->setText(QString::fromStdString(result.ports));
    stored_.encode(protocols_);
  });
  grid.addWidget(field, row, 1);

  const auto source = static_cast<int>(protocol->sourceProtocol.get());
  grid.addWidget(menuButton(
                     transportNames().value(source, transportNames().front()), transportNames(),
                     [this, protocol](int i) {
                       protocol->sourceProtocol =
                           kQEVSourceProtocols::allCases.at(static_cast<std::size_t>(i));
                       stored_.encode(protocols_);
                     },
                     rows_),
                 row, 2);
}

void PortsTable::reset() {
  show(ports_.defaultPorts);
  stored_.encode(protocols_);
}

}  // namespace twin
