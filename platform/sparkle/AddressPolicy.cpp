// SPDX-License-Identifier: MIT
#include "AddressPolicy.hpp"

#include <algorithm>

namespace sparkle {

namespace {

enum class Scheme { file, https, http, other };

Scheme schemeOf(std::string_view address) {
  const auto is = [address](std::string_view scheme) {
    const auto lower = [](char c) {
      return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return address.size() >= scheme.size() &&
           std::equal(scheme.begin(), scheme.end(), address.begin(),
                      [&](char a, char b) { return a == lower(b); });
  };
  if (is("file:")) return Scheme::file;
  if (is("https:")) return Scheme::https;
  return is("http:") ? Scheme::http : Scheme::other;
}

}  // namespace

bool mayFetchFeed(std::string_view address, bool allowsInsecureFeed) {
  const Scheme scheme = schemeOf(address);
  return allowsInsecureFeed || scheme == Scheme::file || scheme == Scheme::https;
}

bool mayNamePackage(std::string_view feedAddress, std::string_view packageAddress) {
  const Scheme package = schemeOf(packageAddress);
  switch (schemeOf(feedAddress)) {
    case Scheme::file: return package != Scheme::other;
    case Scheme::https: return package == Scheme::https;
    case Scheme::http: return package == Scheme::https || package == Scheme::http;
    case Scheme::other: return package == Scheme::https;
  }
  return false;
}

}  // namespace sparkle
