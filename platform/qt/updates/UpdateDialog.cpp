// SPDX-License-Identifier: MIT
#include "qt/UpdateDialog.hpp"

#include "paint/Look.hpp"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

namespace qt {

namespace {

// A feed can contain a version of any length.
constexpr qsizetype kLongestVersion = 40;

QString shortened(const std::string& version) {
  const QString text = QString::fromStdString(version).simplified();
  return text.size() > kLongestVersion ? text.left(kLongestVersion) + "…" : text;
}

// The messages of errors begin in lower case.
QString capitalized(const std::string& message) {
  QString text = QString::fromStdString(message).simplified();
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

QLabel* label(const QString& text, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  label->setMinimumWidth(look::updateDialog::kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

QString notesOf(const sparkle::AppcastItem& item) {
  QStringList parts;
  for (const std::string& part :
       {sparkle::plainText(item.notes), item.notesLink, item.enclosure.url}) {
    if (!part.empty()) parts << QString::fromStdString(part);
  }
  return parts.join("\n\n");
}

}  // namespace

struct UpdateDialog::Outcome {
  QStyle::StandardPixmap icon = QStyle::SP_MessageBoxInformation;
  QString headline;
  QString text;
  QString notes;
};

struct UpdateDialog::Shown {
  QPointer<QDialog> dialog;
};

UpdateDialog::UpdateDialog(Localize localize)
    : localize_(std::move(localize)), shown_(std::make_unique<Shown>()) {}

UpdateDialog::~UpdateDialog() { delete shown_->dialog; }

void UpdateDialog::showUpdateFound(const sparkle::FoundUpdate& update) {
  const auto localized = [this](std::string_view key) {
    return QString::fromStdString(localize_(key));
  };
  Outcome outcome;
  outcome.headline = localized("A new version is available");
  outcome.text = localized(
                     "Version %1 can be installed; this is version %2. Installing it is your "
                     "package manager’s business.")
                     .arg(shortened(update.item.displayVersion), shortened(update.currentVersion));
  if (update.package) {
    outcome.text += "\n\n" + localized("Its package was saved as %1. Its signature is valid.")
                                 .arg(QString::fromStdString(update.package->string()));
  }
  if (update.packageProblem) {
    outcome.text +=
        "\n\n" + localized("Its package was not kept: %1.")
                     .arg(QString::fromStdString(update.packageProblem->message).simplified());
  }
  outcome.notes = notesOf(update.item);
  show(outcome);
}

void UpdateDialog::showUpdateNotFound(const std::string& currentVersion) {
  show({.headline = QString::fromStdString(localize_("You are up to date")),
        .text = QString::fromStdString(localize_("Version %1 is the newest one."))
                    .arg(shortened(currentVersion)),
        .notes = {}});
}

void UpdateDialog::showUpdaterError(const foundation::Error& error) {
  show({.icon = QStyle::SP_MessageBoxWarning,
        .headline = QString::fromStdString(localize_("Could not check for updates")),
        .text = QString::fromStdString(localize_("%1.")).arg(capitalized(error.message)),
        .notes = {}});
}

void UpdateDialog::show(const Outcome& outcome) {
  delete shown_->dialog;
  auto* const dialog = new QDialog(QApplication::activeWindow());
  shown_->dialog = dialog;
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(outcome.headline);

  auto* const icon = new QLabel(dialog);
  const int iconSize = dialog->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, dialog);
  icon->setPixmap(dialog->style()->standardIcon(outcome.icon, nullptr, dialog).pixmap(iconSize));
  icon->setAccessibleName(outcome.headline);

  QLabel* const headline = label(outcome.headline, dialog);
  QFont font = headline->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * look::updateDialog::kHeadlineScale);
  headline->setFont(font);

  auto* const texts = new QVBoxLayout;
  texts->addWidget(headline);
  texts->addWidget(label(outcome.text, dialog));
  if (!outcome.notes.isEmpty()) {
    auto* const notes = new QPlainTextEdit(dialog);
    notes->setReadOnly(true);
    notes->setTabChangesFocus(true);
    notes->setMinimumHeight(look::updateDialog::kNotesHeight);
    notes->setAccessibleName(QString::fromStdString(localize_("What is new")));
    notes->setPlainText(outcome.notes);
    texts->addWidget(notes, 1);
  }

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
  buttons->button(QDialogButtonBox::Close)->setText(QString::fromStdString(localize_("Close")));
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  texts->addWidget(buttons);

  auto* const columns = new QHBoxLayout(dialog);
  columns->setSpacing(look::updateDialog::kSpacing);
  columns->addWidget(icon, 0, Qt::AlignTop);
  columns->addLayout(texts, 1);
  buttons->button(QDialogButtonBox::Close)->setFocus();
  dialog->show();
}

}  // namespace qt
