// SPDX-License-Identifier: MIT
#include "sparkle/FileTransport.hpp"

#include "foundation/MainQueue.hpp"
#include "sparkle/reason.hpp"

#include <charconv>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

namespace sparkle {

namespace {

using foundation::Result;

Result<std::string> read(const FeedRequest& request) {
  const auto path = FileTransport::pathOf(request.address);
  if (!path) return reason("the address %1 is not a file:// address", {request.address});

  // A pipe or a device could block the main thread.
  std::error_code error;
  if (!std::filesystem::is_regular_file(*path, error)) {
    return reason(error ? "%1 cannot be opened" : "%1 is no file", {path->string()});
  }
  std::ifstream file(*path, std::ios::binary);
  if (!file) return reason("%1 cannot be opened", {path->string()});

  // Reads one byte more than is allowed, to find out whether the file is too long.
  std::string contents(request.longestAnswer + 1, '\0');
  file.read(contents.data(), static_cast<std::streamsize>(contents.size()));
  if (file.bad()) return reason("%1 cannot be read", {path->string()});
  contents.resize(static_cast<std::size_t>(file.gcount()));
  if (contents.size() > request.longestAnswer) {
    return reason("%1 is longer than an update feed may be", {path->string()});
  }
  return contents;
}

std::string withoutPercentEscapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    int code = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
      plain += static_cast<char>(code);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace

QEVSettings::Subscription FileTransport::fetch(const FeedRequest& request, Completion completion) {
  const auto wanted = std::make_shared<bool>(true);
  foundation::MainQueue::mainQueue().async([wanted, request, completion = std::move(completion)] {
    if (*wanted) completion(read(request));
  });
  return QEVSettings::Subscription([wanted] { *wanted = false; });
}

std::optional<std::filesystem::path> FileTransport::pathOf(std::string_view address) {
  constexpr std::string_view kScheme = "file://";
  constexpr std::string_view kThisMachine = "localhost/";
  if (!address.starts_with(kScheme)) return std::nullopt;
  address.remove_prefix(kScheme.size());
  if (address.starts_with(kThisMachine)) address.remove_prefix(kThisMachine.size() - 1);
  if (!address.starts_with('/')) return std::nullopt;
  return withoutPercentEscapes(address);
}

}  // namespace sparkle
