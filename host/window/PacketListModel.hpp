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

// What the settings say about how packets are listed, as it is at the moment of asking. Announces
// every change of the store, whoever makes it. Main thread.
class PacketListModel final : public foundation::ObservableObject {
public:
  // The store outlives the model.
  explicit PacketListModel(QEVSettings::PreferencesStore& store);

  appkit::Font font() const;
  // The identifier of the zone that times are told in.
  std::string timeZone() const;
  std::string timeOf(const SamplePacket& packet) const;
  // Nothing when packets of the protocol are not coloured.
  std::optional<appkit::Color> colorOf(std::string_view protocol) const;

private:
  QEVSettings::PreferencesStore& store_;
  QEVSettings::Subscription changed_;
};

}  // namespace zorvantine
