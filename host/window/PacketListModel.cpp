// SPDX-License-Identifier: MIT
#include "window/PacketListModel.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "foundation/TimeZones.hpp"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <memory>

namespace zorvantine {

PacketListModel::PacketListModel(QEVSettings::PreferencesStore& store)
    : store_(store),
      changed_(store.observeAll([this](std::string_view) { objectWillChange().announce(); })) {}

appkit::Font PacketListModel::font() const {
  return QEVCommonTools::FontPreferences(store_).com_velloquin_zorvantine_fontPacketTable();
}

std::string PacketListModel::timeZone() const {
  const auto chosen = store_.stringForKey(QEVKonstantsKeys::kPrefTimezoneString.name);
  return chosen ? *chosen : foundation::currentTimeZoneName();
}

std::string PacketListModel::timeOf(const SamplePacket& packet) const {
  const QTimeZone zone(QByteArray::fromStdString(timeZone()));
  const auto time =
      QDateTime::fromMSecsSinceEpoch(packet.time.count(), zone.isValid() ? zone : QTimeZone::utc());
  return time.toString(QStringLiteral("HH:mm:ss.zzz")).toStdString();
}

std::optional<appkit::Color> PacketListModel::colorOf(std::string_view protocol) const {
  const auto& plugIns = QEVModels::QEVPlugInsController::sharedManager().plugInStructs();
  const auto plugIn =
      std::ranges::find(plugIns, protocol, &QEVDependencies::QEVPlugInStructure::plugInTitle);
  if (plugIn == plugIns.end()) return std::nullopt;
  const auto settings = std::dynamic_pointer_cast<QEVDependencies::QEVPluginPreferencesProtocol>(
      plugIn->plugInPreferencesInstance.lock());
  const auto config = settings ? settings->analyzerSettingsConfig() : std::nullopt;
  if (!config || !config->color || !store_.boolForKey(config->color->usesColorKey))
    return std::nullopt;
  return QEVCommonTools::colorFromRawValue(
      store_.stringForKey(config->color->colorKey).value_or(""));
}

}  // namespace zorvantine
