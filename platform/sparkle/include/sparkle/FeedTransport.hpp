#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "foundation/Result.hpp"

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <string>

namespace sparkle {

// What is asked of a transport. It sends these headers, what its protocol cannot do without, and
// nothing that tells one person or machine from another.
struct FeedRequest {
  std::string address;
  std::map<std::string, std::string> headers = {};
  // Bytes; a longer answer is an error, found before all of it was fetched.
  std::size_t longestAnswer = 0;
  // For the whole answer; a slower one is an error.
  std::chrono::seconds patience{30};
};

// The way to the update feed. The updater opens no connections itself; the host hands one of these
// in.
class FeedTransport {
public:
  using Completion = std::function<void(const foundation::Result<std::string>& answer)>;

  FeedTransport() = default;
  FeedTransport(const FeedTransport&) = delete;
  FeedTransport& operator=(const FeedTransport&) = delete;
  virtual ~FeedTransport() = default;

  // Fetches what is at the address without keeping the main thread waiting. A redirection is
  // followed only from http:// to http:// or https://, and from https:// to https://. The
  // completion is called once, on a later turn of the main queue, never within the call; letting
  // the subscription go before that gives the fetch up. The completion may let it go, too. Main
  // thread.
  [[nodiscard]] virtual QEVSettings::Subscription fetch(const FeedRequest& request,
                                                        Completion completion) = 0;
};

}  // namespace sparkle
