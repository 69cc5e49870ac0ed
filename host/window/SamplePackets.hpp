// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <span>
#include <string_view>

namespace zorvantine {

// One row of a list of captured packets.
struct SamplePacket {
  // Since 1970-01-01 00:00:00 UTC.
  std::chrono::milliseconds time;
  std::string_view source;
  std::string_view destination;
  // The title of the analyzer that decoded the packet.
  std::string_view protocol;
  std::string_view info;
};

// The packets of one visit to a web page, in the order of their times. They show what the settings
// change.
std::span<const SamplePacket> samplePackets();

}  // namespace zorvantine
