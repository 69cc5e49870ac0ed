// SPDX-License-Identifier: MIT
#pragma once

#include "peers/PageModel.hpp"

#include <QObject>
#include <QString>

#include <utility>

namespace peers {

// One option, bound to its key in the store.
class StoredSwitch final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(QString icon READ icon CONSTANT)
  Q_PROPERTY(bool on READ isOn WRITE setOn NOTIFY onChanged)

public:
  // The store outlives the switch.
  StoredSwitch(Option option, QEVSettings::PreferencesStore& store)
      : option_(std::move(option)),
        store_(store),
        stored_(store.observe(option_.key, [this](std::string_view) { emit onChanged(); })) {}

  QString label() const { return QString::fromStdString(option_.label); }
  QString icon() const { return QString::fromStdString(option_.icon); }
  bool isOn() const { return option_.isOn(store_); }
  void setOn(bool isOn) { store_.setBool(isOn, option_.key); }

signals:
  void onChanged();

private:
  Option option_;
  QEVSettings::PreferencesStore& store_;
  QEVSettings::Subscription stored_;
};

}  // namespace peers
