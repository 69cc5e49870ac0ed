// SPDX-License-Identifier: MIT
#include "Contender.hpp"

std::string keyName(std::size_t key) {
  return "com-velloquin-qev-analyzer-" + std::to_string(key) + "-option";
}

std::string stringValue(std::size_t key) { return "value number " + std::to_string(key); }

std::vector<unsigned char> bytesValue(std::size_t key) {
  constexpr std::size_t size = 4096;
  return std::vector<unsigned char>(size, static_cast<unsigned char>('a' + key % 26));
}
