// SPDX-License-Identifier: MIT
#include "AnalyzerDetails.hpp"

#include "OptionRow.hpp"
#include "PortsTable.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "Section.hpp"

#include <QLabel>
#include <QVBoxLayout>

namespace twin {

namespace {

QLabel* selectable(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

AnalyzerDetails::AnalyzerDetails(const QEVDependencies::QEVPlugInStructure& analyzer,
                                 QEVSettings::PreferencesStore& store) {
  auto* title = selectable(QString::fromStdString(analyzer.plugInTitle), this);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() + 3);
  font.setBold(true);
  title->setFont(font);
  auto* subtitle = selectable(QStringLiteral("%1 · %2 · %3")
                                  .arg(QString::fromStdString(analyzer.plugInDescription),
                                       QString::fromStdString(analyzer.plugInAuthor),
                                       QString::fromStdString(analyzer.plugInVersion)),
                              this);
  subtitle->setForegroundRole(QPalette::PlaceholderText);
  subtitle->setWordWrap(true);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(title);
  layout->addWidget(subtitle);
  layout->addWidget(sectionLine(this));
  layout->addWidget(sectionHeader(QStringLiteral("OPTIONS"), this));
  const auto preferences = std::dynamic_pointer_cast<QEVDependencies::QEVPluginPreferencesProtocol>(
      analyzer.plugInPreferencesInstance.lock());
  if (const auto config = preferences ? preferences->analyzerSettingsConfig() : std::nullopt) {
    for (const auto& option : config->toggles)
      layout->addWidget(new OptionRow(option, store, this));
    layout->addWidget(sectionLine(this));
    layout->addWidget(sectionHeader(QStringLiteral("PORTS"), this));
    if (config->ports) layout->addWidget(new PortsTable(*config->ports, store, this));
  }
  layout->addStretch(1);
}

}  // namespace twin
