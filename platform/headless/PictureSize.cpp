// SPDX-License-Identifier: MIT
#include "PictureSize.hpp"

#include <array>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <string_view>

namespace headless {

using viewkit::Size;

namespace {

constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1A\n";
// The offset of the width and the height, each a big-endian number of four bytes.
constexpr std::size_t kPngSizeOffset = 16;
constexpr std::size_t kBytesToRead = 2048;

double bigEndian(std::string_view bytes) {
  double value = 0;
  for (const char byte : bytes) value = value * 256 + static_cast<unsigned char>(byte);
  return value;
}

// The text of an attribute of an element; empty when it has none.
std::string attribute(std::string_view element, std::string_view name) {
  const std::size_t start = element.find(std::string(" ").append(name).append("=\""));
  if (start == std::string_view::npos) return {};
  element.remove_prefix(start + name.size() + 3);
  return std::string(element.substr(0, element.find('"')));
}

Size svgSize(std::string_view file) {
  const std::size_t start = file.find("<svg");
  if (start == std::string_view::npos) return {};
  const std::string_view element = file.substr(start, file.find('>', start) - start);
  Size size;
  std::istringstream(attribute(element, "width")) >> size.width;
  std::istringstream(attribute(element, "height")) >> size.height;
  if (size.width > 0 && size.height > 0) return size;
  double x = 0;
  double y = 0;
  std::istringstream(attribute(element, "viewBox")) >> x >> y >> size.width >> size.height;
  return size;
}

}  // namespace

Size pictureSize(const std::string& path) {
  std::array<char, kBytesToRead> buffer{};
  std::ifstream stream(path, std::ios::binary);
  stream.read(buffer.data(), buffer.size());
  const std::string_view file(buffer.data(), static_cast<std::size_t>(stream.gcount()));
  if (!file.starts_with(kPngSignature)) return svgSize(file);
  if (file.size() < kPngSizeOffset + 8) return {};
  return {bigEndian(file.substr(kPngSizeOffset, 4)), bigEndian(file.substr(kPngSizeOffset + 4, 4))};
}

}  // namespace headless
