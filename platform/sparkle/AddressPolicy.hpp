#pragma once

#include <string_view>

namespace sparkle {

// Whether a feed may be fetched from there: from https:// or a file on this machine, because
// anybody on the way can change what comes over http://; from anywhere where the host allows an
// insecure feed.
bool mayFetchFeed(std::string_view address, bool allowsInsecureFeed);

// Whether a feed from one address may have a package fetched from another. Neither more of this
// machine nor less protected than the feed itself:
//
//     feed       package
//     file://    file://, https://, http://
//     https://   https://
//     http://    https://, http://
//     other      https://
//
// A transport follows redirections by the same table.
bool mayNamePackage(std::string_view feedAddress, std::string_view packageAddress);

}  // namespace sparkle
