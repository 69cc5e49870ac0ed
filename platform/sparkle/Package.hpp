// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "sparkle/Appcast.hpp"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace sparkle {

// Bytes. A longer package is not downloaded.
inline constexpr std::uint64_t kLongestPackage = std::uint64_t{64} << 20;

// Fails when a package must not be fetched: the feed may not name this address, or the package
// could not be verified.
foundation::Outcome checkDownload(const Enclosure& enclosure, std::string_view feedAddress,
                                  std::string_view publicKey);

// Writes a downloaded package into the folder under the name in its address, readable by the user
// alone. It is written as a whole or not at all, and replaces an earlier one of that name. Fails
// when its length is not that of the enclosure, its signature is not valid, or the folder cannot be
// written.
foundation::Result<std::filesystem::path> keepPackage(const Enclosure& enclosure,
                                                      std::string_view contents,
                                                      std::string_view publicKey,
                                                      const std::filesystem::path& folder);

}  // namespace sparkle
