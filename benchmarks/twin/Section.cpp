// SPDX-License-Identifier: MIT
#include "Section.hpp"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>

namespace twin {

namespace {

constexpr QSize kHeaderIcon(13, 13);

}  // namespace

QFrame* sectionLine(QWidget* parent) {
  auto* frame = new QFrame(parent);
  frame->setFrameShape(QFrame::HLine);
  frame->setFrameShadow(QFrame::Sunken);
  return frame;
}

QWidget* sectionHeader(const QString& title, QWidget* parent) {
  static const QIcon icon(QStringLiteral(":/sliders.svg"));
  auto* header = new QWidget(parent);
  auto* picture = new QLabel(header);
  picture->setPixmap(icon.pixmap(kHeaderIcon, header->devicePixelRatio()));
  auto* label = new QLabel(title, header);
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

}  // namespace twin
