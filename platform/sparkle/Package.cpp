// SPDX-License-Identifier: MIT
#include "Package.hpp"

#include "AddressPolicy.hpp"
#include "Signature.hpp"
#include "foundation/Ascii.hpp"
#include "foundation/Files.hpp"
#include "sparkle/reason.hpp"

#include <algorithm>
#include <string>
#include <system_error>

namespace sparkle {

namespace {

// The last component of the address, reduced to characters without meaning to file systems and
// shells.
std::string fileNameOf(std::string_view url) {
  url = url.substr(0, url.find_first_of("?#"));
  std::string name(url.substr(url.find_last_of('/') + 1));
  const auto isPlain = [](char c) {
    return foundation::isLetter(c) || foundation::isDigit(c) || c == '.' || c == '-' || c == '_' ||
           c == '+' || c == '~';
  };
  std::ranges::replace_if(
      name, [&](char c) { return !isPlain(c); }, '_');
  if (name.empty() || name.front() == '.' || name.front() == '-') name.insert(0, "update");
  return name;
}

}  // namespace

foundation::Outcome checkDownload(const Enclosure& enclosure, std::string_view feedAddress,
                                  std::string_view publicKey) {
  if (!mayNamePackage(feedAddress, enclosure.url)) {
    return reason("the update feed may not name the address %1", {enclosure.url});
  }
  if (enclosure.length == 0) return reason("the update feed does not say how long it is");
  if (enclosure.length > kLongestPackage) return reason("it is longer than 64 MiB");
  if (publicKey.empty()) return reason("the application has no key to check its signature with");
  if (enclosure.signature.empty()) return reason("the update feed has no signature for it");
  return foundation::done();
}

foundation::Result<std::filesystem::path> keepPackage(const Enclosure& enclosure,
                                                      std::string_view contents,
                                                      std::string_view publicKey,
                                                      const std::filesystem::path& folder) {
  if (contents.size() != enclosure.length)
    return reason("it is not as long as the update feed says");
  if (!isSigned(contents, enclosure.signature, publicKey))
    return reason("its signature is not valid");

  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const auto path = folder / fileNameOf(enclosure.url);
  // A new file would get the mode of the file that it replaces.
  constexpr auto forTheUserAlone =
      std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  const auto earlier = std::filesystem::symlink_status(path, error);
  if (std::filesystem::is_regular_file(earlier))
    std::filesystem::permissions(path, forTheUserAlone, error);
  if (!foundation::writeFile(path, contents))
    return reason("it cannot be saved in %1", {folder.string()});
  return path;
}

}  // namespace sparkle
