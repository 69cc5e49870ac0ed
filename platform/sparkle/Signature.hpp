#pragma once

#include <string_view>

namespace sparkle {

// Whether the Ed25519 signature of the contents was made with the private key that belongs to the
// public one. Both come in base64; one that is none, or of another length, is no signature and no
// key.
bool isSigned(std::string_view contents, std::string_view signature, std::string_view publicKey);

}  // namespace sparkle
