// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "foundation/Result.hpp"

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <string>

namespace sparkle {

// A request to a transport. The transport sends these headers, those that its protocol requires,
// and nothing that identifies the user or the machine. See FeedTransport.
struct FeedRequest {
  std::string address;
  std::map<std::string, std::string> headers = {};
  // Bytes. A longer answer is an error, and is not fetched to its end.
  std::size_t longestAnswer = 0;
  // The time for the whole answer. A slower one is an error.
  std::chrono::seconds patience{30};
};

// Fetches the update feed and packages. The updater opens no connections itself; the host provides
// a transport. Main thread only.
//
//     const FeedRequest request{.address = feedAddress, .longestAnswer = kLongestFeed};
//     fetch_ = transport.fetch(request, [](const foundation::Result<std::string>& answer) {
//       if (answer) read(*answer);
//     });
class FeedTransport {
public:
  using Completion = std::function<void(const foundation::Result<std::string>& answer)>;

  FeedTransport() = default;
  FeedTransport(const FeedTransport&) = delete;
  FeedTransport& operator=(const FeedTransport&) = delete;
  virtual ~FeedTransport() = default;

  // Fetches an address without blocking the main thread. Redirections are followed from http:// to
  // http:// or https://, and from https:// to https:// only.
  //
  // `completion` is called once, on a later turn of the main queue. Destroying the subscription
  // before that cancels the fetch; `completion` may destroy it too.
  [[nodiscard]] virtual QEVSettings::Subscription fetch(const FeedRequest& request,
                                                        Completion completion) = 0;
};

}  // namespace sparkle
