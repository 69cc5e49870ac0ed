// SPDX-License-Identifier: MIT
#include "window/SamplePackets.hpp"

#include <array>

namespace zorvantine {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kStart{1'760'000'000'000};

// The addresses are reserved for documentation.
constexpr std::array<SamplePacket, 12> kPackets{{
    {kStart + milliseconds(0), "02:00:5e:10:00:01", "ff:ff:ff:ff:ff:ff", "ARP",
     "Who has 192.0.2.1? Tell 192.0.2.17"},
    {kStart + milliseconds(1), "02:00:5e:10:00:02", "02:00:5e:10:00:01", "ARP",
     "192.0.2.1 is at 02:00:5e:10:00:02"},
    {kStart + milliseconds(4), "192.0.2.17", "192.0.2.53", "DNS", "Query A www.example.org"},
    {kStart + milliseconds(19), "192.0.2.53", "192.0.2.17", "DNS", "Answer A 198.51.100.7"},
    {kStart + milliseconds(20), "192.0.2.17", "198.51.100.7", "TCP",
     "51844 → 443 SYN seq 0 window 64240"},
    {kStart + milliseconds(43), "198.51.100.7", "192.0.2.17", "TCP",
     "443 → 51844 SYN ACK seq 0 ack 1"},
    {kStart + milliseconds(44), "192.0.2.17", "198.51.100.7", "TLS",
     "Client hello, www.example.org"},
    {kStart + milliseconds(69), "198.51.100.7", "192.0.2.17", "TLS",
     "Server hello, encrypted extensions"},
    {kStart + milliseconds(74), "2001:db8::17", "2001:db8:1::7", "QUIC", "Initial, 1200 bytes"},
    {kStart + milliseconds(1080), "192.0.2.17", "203.0.113.123", "NTP", "Client, version 4"},
    {kStart + milliseconds(1112), "203.0.113.123", "192.0.2.17", "NTP",
     "Server, version 4, stratum 2"},
    {kStart + milliseconds(2240), "192.0.2.17", "198.51.100.80", "HTTP", "GET /index.html"},
}};

}  // namespace

std::span<const SamplePacket> samplePackets() { return kPackets; }

}  // namespace zorvantine
