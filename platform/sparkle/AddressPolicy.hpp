// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace sparkle {

// Whether a feed may be fetched from an address: https:// or file://, or any address when the host
// allows insecure feeds. Others can change an http:// feed on its way.
bool mayFetchFeed(std::string_view address, bool allowsInsecureFeed);

// Whether a feed may name a package at an address. A feed of another machine names no files of this
// one, and a protected feed names no unprotected address:
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
