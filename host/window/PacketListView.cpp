// SPDX-License-Identifier: MIT
#include "window/PacketListView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVSettings/CheckForUpdatesView.hpp"
#include "foundation/Bundle.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zorvantine {

using namespace viewkit;
using QEVCommonTools::Hairline;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr double kMinWidth = 640;
constexpr double kMinHeight = 320;

// A column's title, and its width in multiples of the font size. The last column takes the rest.
struct Column {
  const char* titleKey;
  double width;
};
constexpr std::array<Column, 6> kColumns{
    {{"No.", 4}, {"Time", 10}, {"Source", 13}, {"Destination", 13}, {"Protocol", 7}, {"Info", 0}}};
using Cells = std::array<std::string, kColumns.size()>;

std::string localized(std::string_view key) {
  return foundation::Bundle::mainBundle().localizedString(key);
}

View row(const Cells& cells, const Font& font, double size) {
  const auto cell = [&](std::size_t at) {
    const View text = Text(cells[at]).font(font).lineLimit(1);
    if (at + 1 == kColumns.size())
      return text.frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()});
    return text.frame(
        FixedFrame{.width = kColumns[at].width * size, .alignment = Alignment::leading()});
  };
  return HStack({.spacing = points(Spacing::s5)},
                {cell(0), cell(1), cell(2), cell(3), cell(4), cell(5)})
      .padding(Edges::horizontal, points(Spacing::s6))
      .padding(Edges::vertical, points(Spacing::s2));
}

struct NumberedPacket {
  std::int64_t number;
  SamplePacket packet;
};

std::vector<NumberedPacket> numbered(std::span<const SamplePacket> packets) {
  std::vector<NumberedPacket> rows;
  for (const SamplePacket& packet : packets)
    rows.push_back({static_cast<std::int64_t>(rows.size()) + 1, packet});
  return rows;
}

}  // namespace

View PacketListView::body() const {
  const appkit::Font chosen = model->font();
  const Font font = Font::of(chosen);
  Cells titles;
  for (std::size_t at = 0; at < kColumns.size(); ++at)
    titles[at] = localized(kColumns[at].titleKey);
  const auto packetRow = [&](const NumberedPacket& each) {
    const SamplePacket& packet = each.packet;
    const Cells cells{std::to_string(each.number),  model->timeOf(packet),
                      std::string(packet.source),   std::string(packet.destination),
                      std::string(packet.protocol), std::string(packet.info)};
    return row(cells, font, chosen.pointSize)
        .background(model->colorOf(packet.protocol).value_or(Color::clear()));
  };
  return VStack({.spacing = 0},
                {
                    row(titles, font.semibold(), chosen.pointSize).foreground(Color::secondary()),
                    Hairline{Color::separator()},
                    ScrollView(
                        {}, VStack({.spacing = 0},
                                   {forEach(
                                       numbered(samplePackets()),
                                       [](const auto& each) { return each.number; }, packetRow)}))
                        .background(Color::controlBackground()),
                    Hairline{Color::separator()},
                    HStack({},
                           {
                               Text(QEVCommonTools::formatted(localized("Packet time zone: %@"),
                                                              {model->timeZone()})),
                               Spacer(),
                               QEVSettings::CheckForUpdatesView(updater),
                               Button(localized("Settings…"), openSettings),
                           })
                        .padding(points(Spacing::s6)),
                })
      .frame(FlexibleFrame{.minWidth = kMinWidth,
                           .maxWidth = kUnlimited,
                           .minHeight = kMinHeight,
                           .maxHeight = kUnlimited})
      .background(Color::windowBackground());
}

}  // namespace zorvantine
