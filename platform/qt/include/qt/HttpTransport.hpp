// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/FeedTransport.hpp"
#include "sparkle/FileTransport.hpp"

#include <memory>

namespace qt {

// Fetches http://, https:// and file:// addresses. Follows redirections, but never from https:// to
// http://. Sends no cookies, and nothing about the user or the system beyond the headers of the
// request. Needs a qt::Application that outlives it. Main thread only.
//
//     configuration.transport = std::make_shared<qt::HttpTransport>();
class HttpTransport final : public sparkle::FeedTransport {
public:
  HttpTransport();
  ~HttpTransport() override;

  [[nodiscard]] QEVSettings::Subscription fetch(const sparkle::FeedRequest& request,
                                                Completion completion) override;

private:
  struct Network;
  std::unique_ptr<Network> network_;
  sparkle::FileTransport files_;
};

}  // namespace qt
