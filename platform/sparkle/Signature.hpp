// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace sparkle {

// Whether an Ed25519 signature of the contents is valid. Signature and public key are in base64;
// false when either is malformed.
bool isSigned(std::string_view contents, std::string_view signature, std::string_view publicKey);

}  // namespace sparkle
