// SPDX-License-Identifier: MIT
#include "Page.hpp"

#include "QEVModels/QEVPlugInsController.hpp"

#include <utility>

namespace peers {

Page::Page(QEVSettings::PreferencesStore& store)
    : store_(store), analyzers_(QEVModels::QEVPlugInsController::sharedManager().plugInStructs()) {
  show(static_cast<int>(storedSelection(store_, analyzers_.count())));
}

QList<QObject*> Page::options() const {
  QList<QObject*> list;
  for (const auto& option : options_) list << option.get();
  return list;
}

void Page::select(int row) {
  if (row == selected_ || row < 0) return;
  storeSelection(static_cast<std::size_t>(row), store_);
  // The views of the old details release them before they are gone.
  const auto oldOptions = std::exchange(options_, {});
  const auto oldPorts = std::exchange(ports_, nullptr);
  show(row);
  emit selectedChanged();
}

void Page::show(int row) {
  selected_ = row;
  if (analyzers_.count() == 0) return;
  Details details = detailsOf(analyzers_.analyzer(static_cast<std::size_t>(row)));
  title_ = QString::fromStdString(details.title);
  subtitle_ = QString::fromStdString(details.subtitle);
  for (Option& option : details.options) {
    options_.push_back(std::make_unique<StoredSwitch>(std::move(option), store_));
  }
  if (details.ports)
    ports_ = std::make_unique<PortsModel>(StoredPorts(*std::move(details.ports), store_));
}

}  // namespace peers
