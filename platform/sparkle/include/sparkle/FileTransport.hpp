// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/FeedTransport.hpp"

#include <filesystem>
#include <optional>
#include <string_view>

namespace sparkle {

// Reads file:// addresses, such as the feed of a mirror on this machine. Ignores headers. Fails for
// every other address.
//
//     configuration.feedAddress = "file:///srv/mirror/appcast.xml";
//     configuration.transport = std::make_shared<FileTransport>();
class FileTransport final : public FeedTransport {
public:
  [[nodiscard]] QEVSettings::Subscription fetch(const FeedRequest& request,
                                                Completion completion) override;

  // The path of a file:// address, percent-decoded; nothing for any other address.
  static std::optional<std::filesystem::path> pathOf(std::string_view address);
};

}  // namespace sparkle
