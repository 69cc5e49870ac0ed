// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "appkit/Color.hpp"
#include "appkit/Font.hpp"
#include "foundation/ObservableObject.hpp"
#include "window/SamplePackets.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace zorvantine {

// How the settings want packets to be listed, read from the store at each call. Announces every
// change of the store, including those of other processes. Main thread.
class PacketListModel final : public foundation::ObservableObject {
public:
  // The store outlives the model.
  explicit PacketListModel(QEVSettings::PreferencesStore& store);

  appkit::Font font() const;
  // The identifier of the time zone of the listed times.
  std::string timeZone() const;
  std::string timeOf(const SamplePacket& packet) const;
  // Nothing when packets of the protocol have no colour of their own.
  std::optional<appkit::Color> colorOf(std::string_view protocol) const;

private:
  QEVSettings::PreferencesStore& store_;
  QEVSettings::Subscription changed_;
};

}  // namespace zorvantine
