// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/FeedTransport.hpp"

namespace QEVSettings {

// Never answers by itself, so that a check goes on until the test ends it.
class SilentTransport final : public sparkle::FeedTransport {
public:
  Subscription fetch(const sparkle::FeedRequest& /*request*/, Completion completion) override {
    ++requests;
    answer = std::move(completion);
    return Subscription();
  }

  int requests = 0;
  Completion answer;
};

}  // namespace QEVSettings
