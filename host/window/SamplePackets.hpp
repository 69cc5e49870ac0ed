#pragma once

#include <chrono>
#include <span>
#include <string_view>

namespace zorvantine {

// A packet as a list of captured packets tells of it.
struct SamplePacket {
  // Since the epoch, UTC.
  std::chrono::milliseconds time;
  std::string_view source;
  std::string_view destination;
  // The title of the analyzer that understood the packet.
  std::string_view protocol;
  std::string_view info;
};

// A few packets from one visit to a page, in the order of their times: something to see settings at
// work on.
std::span<const SamplePacket> samplePackets();

}  // namespace zorvantine
