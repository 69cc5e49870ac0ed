// SPDX-License-Identifier: MIT
#include "controls/choosers/FileButton.hpp"

#include "bridge/Strings.hpp"
#include "controls/PushButton.hpp"

#include <QFileInfo>
#include <QPainter>

#include <functional>

namespace qt {

QSizeF FileButton::sizeFor(const viewkit::FileButtonControl& button) {
  return PushButton::sizeFor({.title = button.title, .symbol = {}, .action = {}});
}

void FileButton::press() {
  const auto* button = control<viewkit::FileButtonControl>();
  if (!button) return;
  const QFileInfo current(toQString(std::function(button->path)()));
  if (!node()) return;
  if (!dialog_) {
    dialog_ = new QFileDialog(window());
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    dialog_->setFileMode(QFileDialog::ExistingFile);
    dialog_->setWindowTitle(accessibleNameOf(node()->accessibility));
    connect(dialog_, &QFileDialog::fileSelected, this, [this](const QString& path) {
      call(&viewkit::FileButtonControl::choose, path.toStdString());
    });
  }
  if (current.dir().exists() && current.isAbsolute()) dialog_->setDirectory(current.dir());
  if (current.isFile()) dialog_->selectFile(current.fileName());
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void FileButton::closeOpened() {
  if (dialog_) dialog_->close();
}

void FileButton::paintEvent(QPaintEvent* /*event*/) {
  if (const auto* button = control<viewkit::FileButtonControl>())
    PushButton::draw(*this, toQString(button->title), std::nullopt, styleOption());
}

}  // namespace qt
