// SPDX-License-Identifier: MIT
#include "Signature.hpp"

#include "foundation/Base64.hpp"

#include <sodium.h>

namespace sparkle {

bool isSigned(std::string_view contents, std::string_view signature, std::string_view publicKey) {
  const auto signatureBytes = foundation::base64Decoded(signature);
  const auto keyBytes = foundation::base64Decoded(publicKey);
  if (!signatureBytes || signatureBytes->size() != crypto_sign_BYTES) return false;
  if (!keyBytes || keyBytes->size() != crypto_sign_PUBLICKEYBYTES) return false;
  return sodium_init() >= 0 &&
         crypto_sign_verify_detached(signatureBytes->data(),
                                     reinterpret_cast<const unsigned char*>(contents.data()),
                                     contents.size(), keyBytes->data()) == 0;
}

}  // namespace sparkle
