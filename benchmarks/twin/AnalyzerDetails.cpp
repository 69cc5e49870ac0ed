// SPDX-License-Identifier: MIT
#include "AnalyzerDetails.hpp"

#include "OptionRow.hpp"
#include "PortsTable.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"

#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace twin {

namespace {

constexpr QSize kHeaderIcon(13, 13);

QFrame* line(QWidget* parent) {
  auto* frame = new QFrame(parent);
  frame->setFrameShape(QFrame::HLine);
  frame->setFrameShadow(QFrame::Sunken);
  return frame;
}

QLabel* selectable(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QWidget* sectionHeader(const QString& text, QWidget* parent) {
  static const QIcon icon(QStringLiteral(":/sliders.svg"));
  auto* header = new QWidget(parent);
  auto* picture = new QLabel(header);
  picture->setPixmap(icon.pixmap(kHeaderIcon, header->devicePixelRatio()));
  auto* label = new QLabel(text, header);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() - 1);
  font.setBold(true);
  label->setFont(font);
  auto* layout = new QHBoxLayout(header);
  layout->setContentsMargins({});
  layout->addWidget(picture);
  layout->addWidget(label, 1);
  return header;
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
  layout->addWidget(line(this));
  layout->addWidget(sectionHeader(QStringLiteral("OPTIONS"), this));
  const auto preferences = std::dynamic_pointer_cast<QEVDependencies::QEVPluginPreferencesProtocol>(
      analyzer.plugInPreferencesInstance.lock());
  if (const auto config = preferences ? preferences->analyzerSettingsConfig() : std::nullopt) {
    for (const auto& option : config->toggles)
      layout->addWidget(new OptionRow(option, store, this));
    layout->addWidget(line(this));
    layout->addWidget(sectionHeader(QStringLiteral("PORTS"), this));
    if (config->ports) layout->addWidget(new PortsTable(*config->ports, store, this));
  }
  layout->addStretch(1);
}

}  // namespace twin
