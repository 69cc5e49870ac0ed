#pragma once

#include "foundation/Result.hpp"
#include "sparkle/Appcast.hpp"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace sparkle {

// A longer package is left to be downloaded by hand.
inline constexpr std::uint64_t kLongestPackage = std::uint64_t{64} << 20;

// Whether the feed says enough of a package to download it unattended.
bool canDownload(const Enclosure& enclosure);

// Puts a downloaded package under its own name into the folder, whole or not at all, in place of an earlier
// one of that name. Fails when it is not as long as the feed said, or the folder cannot be written.
foundation::Result<std::filesystem::path> keepPackage(const Enclosure& enclosure, std::string_view contents,
                                                      const std::filesystem::path& folder);

}  // namespace sparkle
