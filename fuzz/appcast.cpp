// SPDX-License-Identifier: MIT
#include "sparkle/Appcast.hpp"
#include "sparkle/Version.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

// Reads, compares and describes whatever the server of a feed may send.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view feed(reinterpret_cast<const char*>(data), size);
  sparkle::plainText(feed);
  const auto items = sparkle::parseAppcast(feed);
  if (!items) return 0;
  for (const auto& item : *items) {
    sparkle::plainText(item.notes);
    sparkle::compareVersions(item.version, item.displayVersion);
  }
  return 0;
}
