#pragma once

#include "foundation/Result.hpp"
#include "sparkle/Appcast.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sparkle {

// A longer package is left to be downloaded by hand.
inline constexpr std::uint64_t kLongestPackage = std::uint64_t{64} << 20;

// Why a package that the feed names is not even fetched: a feed may not name an address of that
// kind, or the package could not be checked. Nothing when it may be fetched.
std::optional<foundation::Error> obstacleToDownload(const Enclosure& enclosure,
                                                    std::string_view feedAddress,
                                                    std::string_view publicKey);

// Puts a downloaded package under its own name into the folder, whole or not at all, in place of an
// earlier one of that name, readable by the user alone. Fails when it is not as long as the feed
// said, has no valid signature, or the folder cannot be written.
foundation::Result<std::filesystem::path> keepPackage(const Enclosure& enclosure,
                                                      std::string_view contents,
                                                      std::string_view publicKey,
                                                      const std::filesystem::path& folder);

}  // namespace sparkle
