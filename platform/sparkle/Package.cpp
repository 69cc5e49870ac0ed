#include "Package.hpp"

#include "foundation/Ascii.hpp"

#include <algorithm>
#include <fstream>
#include <string>
#include <system_error>

namespace sparkle {

namespace {

using foundation::Error;

// The last part of the address, in characters that mean nothing to a file system or a shell.
std::string fileNameOf(std::string_view url) {
  url = url.substr(0, url.find_first_of("?#"));
  std::string name(url.substr(url.find_last_of('/') + 1));
  const auto isPlain = [](char c) {
    return foundation::isLetter(c) || foundation::isDigit(c) || c == '.' || c == '-' || c == '_' || c == '+' ||
           c == '~';
  };
  std::ranges::replace_if(
      name, [&](char c) { return !isPlain(c); }, '_');
  if (name.empty() || name.front() == '.' || name.front() == '-') name.insert(0, "update");
  return name;
}

}  // namespace

bool canDownload(const Enclosure& enclosure) {
  return !enclosure.url.empty() && enclosure.length > 0 && enclosure.length <= kLongestPackage;
}

foundation::Result<std::filesystem::path> keepPackage(const Enclosure& enclosure, std::string_view contents,
                                                      const std::filesystem::path& folder) {
  if (contents.size() != enclosure.length) return Error{"the package is not as long as the update feed says"};

  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const auto path = folder / fileNameOf(enclosure.url);
  const auto unfinished = path.string() + ".part";
  std::ofstream file(unfinished, std::ios::binary | std::ios::trunc);
  file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
  file.close();
  if (file) std::filesystem::rename(unfinished, path, error);
  if (!file || error) {
    std::filesystem::remove(unfinished, error);
    return Error{"the package cannot be saved in " + folder.string()};
  }
  return path;
}

}  // namespace sparkle
